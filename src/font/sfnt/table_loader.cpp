#include "font/sfnt/table_loader.h"

#include <utility>

#include "common/bytes/stream_read.h"
#include "font/cmap/cmap_reader.h"
#include "font/directory/report_texts.h"
#include "font/metrics/vertical_forms.h"
#include "layout/table/class_def.h"
#include "layout/table/gdef.h"
#include "layout/table/layout_table.h"

namespace QXFontService_NS::sfnt {
namespace {

using QXCommonNS::bytes::readBlock;

/// The texts of one layout table.
struct LayoutTexts {
  const char* read;
  const char* featureList;
  const char* lookupList;
  const char* scriptList;
};
constexpr LayoutTexts kGposTexts{texts::kGposRead, texts::kGposFeatures, texts::kGposLookups,
                                 texts::kGposScripts};
constexpr LayoutTexts kGsubTexts{texts::kGsubRead, texts::kGsubFeatures, texts::kGsubLookups,
                                 texts::kGsubScripts};

TableResult judge(layout::LayoutTableFailure failure, const LayoutTexts& texts) {
  switch (failure) {
    case layout::LayoutTableFailure::featureList:
      return formatFailure(texts.featureList);
    case layout::LayoutTableFailure::lookupList:
      return formatFailure(texts.lookupList);
    case layout::LayoutTableFailure::scriptList:
      return formatFailure(texts.scriptList);
    case layout::LayoutTableFailure::none:
      break;
  }
  return std::nullopt;
}

class TableLoader {
 public:
  TableLoader(const LoadRequest& request, const std::function<void(const TableFailure&)>& report)
      : request_(request), report_(report) {}

  LoadedTables load() {
    check(readCff());
    check(readMaxp());
    readGdef();
    check(readLayout("GPOS", kGposTexts, layout::readGPOS));
    check(readLayout("GSUB", kGsubTexts, layout::readGSUB));
    check(readCmap());
    check(metrics::readKern(request_.stream, rangeOf("kern"), out_.kern));
    check(metrics::readHmtx(request_.stream, rangeOf("hmtx"),
                            request_.records.hhea.numberOfHMetrics, out_.hMetrics));
    readVerticalForms();
    return std::move(out_);
  }

 private:
  using LayoutReader = layout::LayoutTableFailure (*)(FS_LayoutTables&, ByteView);

  /// Reports a failure and marks the load as bad.
  void check(const TableResult& failure) {
    if (!failure) return;
    report_(*failure);
    out_.tablesGood = false;
  }

  const TableRecord* find(const char (&tag)[5]) const {
    return request_.records.directory.find(tagOf(tag));
  }
  std::optional<TableRange> rangeOf(const char (&tag)[5]) const {
    const TableRecord* record = find(tag);
    if (record == nullptr) return std::nullopt;
    return TableRange{record->offset, record->length};
  }
  /// All bytes of a table, or nothing where the file is shorter than the directory says.
  std::optional<std::vector<std::byte>> readWhole(const TableRecord& record) const {
    std::vector<std::byte> bytes = readBlock(request_.stream, record.offset, record.length);
    if (bytes.size() < record.length) return std::nullopt;
    return bytes;
  }

  TableResult readCff();
  TableResult readMaxp();
  void readGdef();
  TableResult readLayout(const char (&tag)[5], const LayoutTexts& texts, LayoutReader reader);
  TableResult readCmap();
  void readVerticalForms();

  LoadRequest request_;
  const std::function<void(const TableFailure&)>& report_;
  LoadedTables out_;
};

TableResult TableLoader::readCff() {
  if (const TableRecord* record = find("CFF ")) {
    out_.cff = std::make_unique<FS_CFFInfo>();
    if (out_.cff->readCFF(request_.stream, record->offset)) return std::nullopt;
    out_.cff.reset();
    return readFailure(texts::kCffRead);
  }
  if (!request_.isOpenType) return std::nullopt;
  return formatFailure(find("CFF2") != nullptr ? texts::kCff2 : texts::kNoCff);
}

TableResult TableLoader::readMaxp() {
  TableResult failure = metrics::readMaxp(request_.stream, rangeOf("maxp"), out_.maxp);
  request_.layout.numGlyphs = out_.maxp.numGlyphs;
  return failure;
}

void TableLoader::readGdef() {
  const TableRecord* record = find("GDEF");
  if (record == nullptr) return;
  const auto bytes = readWhole(*record);
  if (!bytes) return check(readFailure(texts::kGdefRead));
  const layout::GDEFRead read = layout::readGDEF(request_.layout, ByteView(*bytes));
  if (!read.glyphClasses) return check(formatFailure(texts::kGlyphClassDef));
  // Fonts without usable mark classes are common and shape well: a report, but no bad load.
  if (!read.markAttachClasses) report_(formatFailure(texts::kMarkAttachClassDef));
}

TableResult TableLoader::readLayout(const char (&tag)[5], const LayoutTexts& texts,
                                    LayoutReader reader) {
  const TableRecord* record = find(tag);
  if (record == nullptr) return std::nullopt;
  const auto bytes = readWhole(*record);
  if (!bytes) return readFailure(texts.read);
  return judge(reader(request_.layout, ByteView(*bytes)), texts);
}

TableResult TableLoader::readCmap() {
  bool& isMacStyle = request_.records.isMacStyle;
  cmap::CmapReading reading = cmap::readCmap(request_.stream, rangeOf("cmap"), isMacStyle);
  isMacStyle = reading.isMacStyle;
  out_.maps = cmap::CharacterMaps(std::move(reading.subtables), request_.useZeroGlyph);
  return std::move(reading.failure);
}

/// `mort` is only asked where `GSUB` has no features at all, vertical or not.
void TableLoader::readVerticalForms() {
  const std::size_t features = request_.layout.gsub->featureList.features.size();
  if (features == 0) check(metrics::readMort(request_.stream, rangeOf("mort"), out_.mort));
  out_.hasVerticalForms = metrics::hasVerticalForms(features, out_.mort);
}

}  // namespace

LoadedTables readTables(const LoadRequest& request,
                        const std::function<void(const TableFailure&)>& report) {
  return TableLoader(request, report).load();
}

}  // namespace QXFontService_NS::sfnt
