#pragma once

#include <string>
#include <vector>

namespace qxbench {

using Paths = std::vector<std::string>;

/// The fonts that are measured: those that `./dev setup bench` fetched, or the installed ones.
///
/// A set is a folder of links below the scratch folder, so that the service and the peers see the
/// same files and nothing else.
class FontSets {
 public:
  /// @param fetched folder with `noto`, `cjk` and `text`; empty: only installed fonts serve.
  /// @param scratch a folder of the bench's own, made anew.
  FontSets(const std::string& fetched, const std::string& scratch);

  /// Folder and files of a set of many fonts: all, or every `step`-th.
  struct Set {
    std::string folder;
    Paths files;
  };
  [[nodiscard]] Set every(std::size_t step) const;
  /// The large fonts of Chinese, Japanese and Korean; empty where there are none.
  [[nodiscard]] Set cjk() const;

  /// A file by its name among all these fonts and the installed ones; empty when it is not there.
  [[nodiscard]] std::string file(const std::string& name) const;

  [[nodiscard]] const std::string& fetched() const { return fetched_; }
  [[nodiscard]] const std::string& scratch() const { return scratch_; }

  /// A folder of links to the given files.
  [[nodiscard]] Set linked(const std::string& name, const Paths& files) const;

 private:
  std::string fetched_;
  std::string scratch_;
  Paths many_;
  Paths cjk_;
  Paths text_;
  Paths installed_;
};

/// The content of a file; empty when it cannot be read.
std::string contentOf(const std::string& path);

}  // namespace qxbench
