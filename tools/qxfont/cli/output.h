#pragma once

#include <nlohmann/json.hpp>

#include <functional>
#include <string>
#include <vector>

#include "qxfont/cli/options.h"

namespace qxfont {

/// JSON whose keys stay in the order in which they were written.
using Json = nlohmann::ordered_json;

/// Prints one JSON document.
void printJson(const Json& json);

/// Prints the rows of an array: as one document, or a document a line.
void printRows(const Json& rows, const OutputOptions& options);

/// Rows of text that are printed in aligned columns.
class TextTable {
 public:
  explicit TextTable(std::vector<std::string> titles) { rows_.push_back(std::move(titles)); }
  void add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }
  /// Prints titles and rows, bold titles on a terminal; the last column is not filled up.
  void print() const;

 private:
  std::vector<std::vector<std::string>> rows_;
};

/// Whether standard output takes colour: a terminal, and NO_COLOR is not set.
bool takesColour();

/// Writes a file beside its place and moves it there at the end, so that a failure leaves no
/// half-written output.
/// @param write writes the content to the path it is given.
/// @throws ToolError `notWritten`, and whatever `write` throws.
void writeOutput(const std::string& path, const std::function<void(const std::string&)>& write);

/// The same for bytes in memory.
void writeBytes(const std::string& path, const std::string& bytes);

}  // namespace qxfont
