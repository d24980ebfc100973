#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "qxfont/cli/options.h"

namespace qxfont {

/// JSON whose keys stay in the order in which they were written.
using Json = nlohmann::ordered_json;

/// The text of a JSON document; what is no UTF-8 in a file name does not keep it from being told.
std::string jsonText(const Json& json);

/// Prints one JSON document.
void printJson(const Json& json);

/// Prints the rows of an array: as one document, or a document a line.
void printRows(const Json& rows, const OutputOptions& options);

/// Rows of text that are printed in aligned columns.
class TextTable {
 public:
  explicit TextTable(std::vector<std::string> titles) { rows_.push_back(std::move(titles)); }
  /// Cells may hold anything: control characters are made visible.
  void add(std::vector<std::string> row);
  /// Prints titles and rows, bold titles on a terminal; the last column is not filled up.
  void print() const;

 private:
  std::vector<std::vector<std::string>> rows_;
};

/// Whether standard output takes colour: a terminal, and NO_COLOR is not set.
bool takesColour();

/// How many columns a text takes on a terminal: wide characters take two, marks none.
std::size_t columnsOf(const std::string& text);

/// A number for JSON: an integer where it is one, else with the digits that tell it apart as float.
Json number(double value);

/// Hands everything printed to the outside.
/// @throws std::system_error when standard output does not take it, as printing itself does.
void flushOutput();

}  // namespace qxfont
