#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <chrono>
#include <cmath>
#include <memory>
#include <string>

#include "qxfontservice/error_codes.h"
#include "qxfontservice/ext/open_file.h"

#include "qxfont/cli/file_type_name.h"
#include "qxfont/cli/folder_walk.h"
#include "qxfont/cli/open_font.h"
#include "qxfont/cli/options.h"
#include "qxfont/cli/output.h"
#include "qxfont/cli/paths.h"
#include "qxfont/cli/progress.h"
#include "qxfont/cli/service.h"
#include "qxfont/cli/text.h"
#include "qxfont/commands/commands.h"

namespace qxfont {
namespace {

struct ScanOptions {
  SourceOptions source;
  OutputOptions output;
  std::string folder;
};

class Stopwatch {
 public:
  [[nodiscard]] double seconds() const {
    return std::chrono::duration<double>(Clock::now() - start_).count();
  }

 private:
  using Clock = std::chrono::steady_clock;
  Clock::time_point start_ = Clock::now();
};

/// To the microsecond: more digits would only be noise.
double rounded(double seconds) {
  return std::round(seconds * 1e6) / 1e6;
}

Json faceJson(const std::string& file, const fs::FS_FontInfo& font) {
  int weight = 0;
  bool italic = false;
  int stretch = 0;
  font.getFontStyle(&weight, &italic, &stretch);
  Json face;
  face["file"] = file;
  face["entry"] = font.getEntry();
  face["family"] = utf8(font.getFamilyName(fs::QXLang::LANGID_DEFAULT));
  face["full_name"] = utf8(font.getFullFontName(fs::QXLang::LANGID_DEFAULT));
  face["postscript_name"] = utf8(font.getPostScriptName(fs::QXLang::LANGID_DEFAULT));
  face["weight"] = weight;
  face["italic"] = italic;
  face["stretch"] = stretch;
  face["file_type"] = static_cast<int>(font.getFontFileType());
  return face;
}

Json refusalJson(const std::string& file, int code, const std::string& message) {
  return {{"file", file}, {"code", code}, {"message", message}};
}

/// Reads files one by one and gathers what each is.
class Scan {
 public:
  void readAll(const FolderContent& content) {
    Progress progress("scanning");
    const std::size_t total = content.files.size();
    for (const std::string& file : content.files) {
      progress.show(done_++, total);
      read(file);
    }
    for (const std::string& folder : content.unreadable) {
      refused.push_back(refusalJson(folder, fs::FS_ERROR_FONT_READ, "The folder cannot be listed"));
    }
  }

  Json fonts = Json::array();
  Json refused = Json::array();

 private:
  void read(const std::string& file) {
    int faces = 1;  // until the first one has told
    for (int face = 0; face < faces; ++face) {
      const Stopwatch watch;
      fs::FS_FontInfo info;
      if (!fs::ext::openFontFile(uriOfPath(file), face, info)) {
        refuse(file, info);
        continue;
      }
      const OpenFont font(info, true);
      faces = fs::ext::faceCount(info);
      Json row = faceJson(file, info);
      row["seconds"] = rounded(watch.seconds());
      fonts.push_back(std::move(row));
    }
  }

  void refuse(const std::string& file, const fs::FS_FontInfo& info) {
    const fs::QXError error = info.getError();
    refused.push_back(refusalJson(file, error.getErrorCode(), oneLine(error.getErrorMessage())));
  }

  std::size_t done_ = 0;
};

void printText(const Scan& scan, double seconds) {
  TextTable fonts({"file", "face", "kind", "ms", "full name"});
  for (const Json& row : scan.fonts) {
    fonts.add({row["file"], fmt::format("{}", row["entry"].get<int>()),
               fileTypeName(row["file_type"].get<int>()),
               fmt::format("{:.1f}", row["seconds"].get<double>() * 1000), row["full_name"]});
  }
  if (!scan.fonts.empty()) fonts.print();
  if (!scan.refused.empty()) {
    TextTable refused({"refused", "code", "why"});
    for (const Json& row : scan.refused) {
      refused.add({row["file"], fmt::format("{}", row["code"].get<int>()), row["message"]});
    }
    refused.print();
  }
  fmt::print("{} faces, {} files refused, {:.3f} s\n", scan.fonts.size(), scan.refused.size(),
             seconds);
}

void printLines(const Scan& scan, const OutputOptions& options) {
  printRows(scan.fonts, options);
  printRows(scan.refused, options);
}

void scan(const ScanOptions& options) {
  requireFolder(options.folder);
  const Service service(options.source);
  const Stopwatch watch;
  Scan scan;
  scan.readAll(walkFolder(options.folder));
  const double seconds = rounded(watch.seconds());
  if (options.output.ndjson) {
    printLines(scan, options.output);
  } else if (options.output.json) {
    printJson({{"fonts", scan.fonts}, {"refused", scan.refused}, {"seconds", seconds}});
  } else {
    printText(scan, seconds);
  }
}

}  // namespace

void addScanCommand(CLI::App& app, Chosen& chosen) {
  auto options = std::make_shared<ScanOptions>();
  CLI::App* command =
      app.add_subcommand("scan", "Reads every file below a folder: what it is, or why it is none");
  command->add_option("DIR", options->folder, "a folder")->required();
  addJsonOption(*command, options->output);
  addNdjsonOption(*command, options->output);
  addSourceOptions(*command, options->source);
  command->callback([options, &chosen] { chosen = [options] { scan(*options); }; });
}

}  // namespace qxfont
