#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "support/be_bytes.h"

namespace qxtest {

/// Writes a resource fork as a plain file: header, 240 bytes for the system, data, map. Types are
/// listed in the order of their first resource, references in the order of the resources.
class DfontBuilder {
 public:
  /// Adds a resource; its data go out behind their length.
  DfontBuilder& resource(std::string_view type, std::string data);
  /// Gives the last resource another length than its data have.
  DfontBuilder& statedLength(std::uint32_t length);

  /// The file with its fields labelled, so that tests can patch them: "dataOffset", "mapOffset",
  /// "map", "typeListOffset", "numTypes", for each type "sfnt", "sfnt.count" and "sfnt.list" (its
  /// entry, count and refListOffset), and "ref0", "ref1" ... for the references in the order of
  /// the file, whose data offsets stand 5 bytes behind.
  [[nodiscard]] BeBytes bytes() const;
  [[nodiscard]] std::string build() const { return bytes().str(); }

 private:
  struct Resource {
    std::string type;
    std::string data;
    std::uint32_t statedLength;
  };

  [[nodiscard]] std::vector<std::string> types() const;
  [[nodiscard]] unsigned countOf(const std::string& type) const;
  [[nodiscard]] BeBytes data() const;
  void appendTypes(BeBytes& out) const;
  void appendReferences(BeBytes& out) const;

  std::vector<Resource> resources_;
};

}  // namespace qxtest
