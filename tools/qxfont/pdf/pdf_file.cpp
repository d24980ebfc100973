#include <memory>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include "qxfont/pdf/pdf_document.h"

// Compiled as C++17: see CMakeLists.txt.

namespace qxfont {
namespace {

using Object = QPDFObjectHandle;

constexpr int kDecimals = 3;

Object number(double value) {
  return Object::newReal(value, kDecimals, true);
}
Object name(const std::string& text) {
  return Object::newName("/" + text);
}

Object rectangle(const std::array<double, 4>& box) {
  Object array = Object::newArray();
  for (const double value : box) array.appendItem(number(value));
  return array;
}

/// The embedded font program; the length of a TrueType font before compression is asked for by
/// name.
Object fontFileOf(QPDF& pdf, const PdfFont& font) {
  Object stream = Object::newStream(&pdf, font.fontFile);
  if (font.type1) {
    for (std::size_t i = 0; i < font.type1->lengths.size(); ++i)
      stream.getDict().replaceKey("/Length" + std::to_string(i + 1),
                                  Object::newInteger(font.type1->lengths[i]));
    return stream;
  }
  if (font.isBareCff) {
    stream.getDict().replaceKey("/Subtype", name("CIDFontType0C"));
    return stream;
  }
  stream.getDict().replaceKey("/Length1",
                              Object::newInteger(static_cast<long long>(font.fontFile.size())));
  return stream;
}

/// The key under which a descriptor has its font program.
const char* fontFileKey(const PdfFont& font) {
  if (font.type1) return "/FontFile";
  return font.isBareCff ? "/FontFile3" : "/FontFile2";
}

Object descriptorOf(QPDF& pdf, const PdfFont& font) {
  Object dictionary = Object::newDictionary();
  dictionary.replaceKey("/Type", name("FontDescriptor"));
  dictionary.replaceKey("/FontName", name(font.baseFont));
  dictionary.replaceKey("/Flags", Object::newInteger(font.flags));
  dictionary.replaceKey("/FontBBox", rectangle(font.bounds));
  dictionary.replaceKey("/ItalicAngle", number(font.italicAngle));
  dictionary.replaceKey("/Ascent", number(font.ascent));
  dictionary.replaceKey("/Descent", number(font.descent));
  dictionary.replaceKey("/CapHeight", number(font.capHeight));
  dictionary.replaceKey("/StemV", number(font.stemV));
  dictionary.replaceKey(fontFileKey(font), fontFileOf(pdf, font));
  return pdf.makeIndirectObject(dictionary);
}

/// The array W: the first id of each row of neighbours, then their widths.
Object widthsOf(const PdfFont& font) {
  Object array = Object::newArray();
  Object row;
  int next = -1;
  for (const auto& [cid, width] : font.widths) {
    if (cid != next) {
      if (next >= 0) array.appendItem(row);
      array.appendItem(Object::newInteger(cid));
      row = Object::newArray();
    }
    row.appendItem(number(width));
    next = cid + 1;
  }
  if (next >= 0) array.appendItem(row);
  return array;
}

Object identityCollection() {
  Object dictionary = Object::newDictionary();
  dictionary.replaceKey("/Registry", Object::newString("Adobe"));
  dictionary.replaceKey("/Ordering", Object::newString("Identity"));
  dictionary.replaceKey("/Supplement", Object::newInteger(0));
  return dictionary;
}

Object descendantOf(QPDF& pdf, const PdfFont& font) {
  Object dictionary = Object::newDictionary();
  dictionary.replaceKey("/Type", name("Font"));
  dictionary.replaceKey("/Subtype", name(font.isBareCff ? "CIDFontType0" : "CIDFontType2"));
  dictionary.replaceKey("/BaseFont", name(font.baseFont));
  dictionary.replaceKey("/CIDSystemInfo", identityCollection());
  if (!font.isBareCff) dictionary.replaceKey("/CIDToGIDMap", name("Identity"));
  dictionary.replaceKey("/W", widthsOf(font));
  dictionary.replaceKey("/FontDescriptor", descriptorOf(pdf, font));
  return pdf.makeIndirectObject(dictionary);
}

/// The widths from the first code to the last, those between that are not used 0.
Object widthsByCode(const PdfFont& font) {
  Object array = Object::newArray();
  int code = font.widths.front().first;
  for (const auto& [used, width] : font.widths) {
    for (; code < used; ++code) array.appendItem(number(0));
    array.appendItem(number(width));
    ++code;
  }
  return array;
}

/// What differs from the encoding of the font program: the first code of each row of neighbours,
/// then their names.
Object encodingOf(const PdfType1& type1) {
  Object differences = Object::newArray();
  int next = -1;
  for (const auto& [code, glyph] : type1.names) {
    if (code != next) differences.appendItem(Object::newInteger(code));
    differences.appendItem(name(glyph));
    next = code + 1;
  }
  Object dictionary = Object::newDictionary();
  dictionary.replaceKey("/Type", name("Encoding"));
  dictionary.replaceKey("/Differences", differences);
  return dictionary;
}

Object type1FontOf(QPDF& pdf, const PdfFont& font) {
  Object dictionary = Object::newDictionary();
  dictionary.replaceKey("/Type", name("Font"));
  dictionary.replaceKey("/Subtype", name("Type1"));
  dictionary.replaceKey("/BaseFont", name(font.baseFont));
  dictionary.replaceKey("/FirstChar", Object::newInteger(font.widths.front().first));
  dictionary.replaceKey("/LastChar", Object::newInteger(font.widths.back().first));
  dictionary.replaceKey("/Widths", widthsByCode(font));
  dictionary.replaceKey("/FontDescriptor", descriptorOf(pdf, font));
  dictionary.replaceKey("/Encoding", encodingOf(*font.type1));
  dictionary.replaceKey("/ToUnicode", Object::newStream(&pdf, font.toUnicode));
  return pdf.makeIndirectObject(dictionary);
}

Object fontOf(QPDF& pdf, const PdfFont& font) {
  if (font.type1) return type1FontOf(pdf, font);
  Object descendants = Object::newArray();
  descendants.appendItem(descendantOf(pdf, font));
  Object dictionary = Object::newDictionary();
  dictionary.replaceKey("/Type", name("Font"));
  dictionary.replaceKey("/Subtype", name("Type0"));
  dictionary.replaceKey("/BaseFont", name(font.baseFont));
  dictionary.replaceKey("/Encoding", name("Identity-H"));
  dictionary.replaceKey("/DescendantFonts", descendants);
  dictionary.replaceKey("/ToUnicode", Object::newStream(&pdf, font.toUnicode));
  return pdf.makeIndirectObject(dictionary);
}

Object resourcesOf(QPDF& pdf, const std::vector<PdfFont>& fonts) {
  Object named = Object::newDictionary();
  for (std::size_t i = 0; i < fonts.size(); ++i) {
    named.replaceKey("/F" + std::to_string(i), fontOf(pdf, fonts[i]));
  }
  Object dictionary = Object::newDictionary();
  dictionary.replaceKey("/Font", named);
  return pdf.makeIndirectObject(dictionary);
}

Object pageOf(QPDF& pdf, const PdfDocument& document, const std::string& content,
              const Object& resources) {
  Object dictionary = Object::newDictionary();
  dictionary.replaceKey("/Type", name("Page"));
  dictionary.replaceKey("/MediaBox", rectangle({0, 0, document.width, document.height}));
  dictionary.replaceKey("/Resources", resources);
  dictionary.replaceKey("/Contents", Object::newStream(&pdf, content));
  return pdf.makeIndirectObject(dictionary);
}

void tellOrigin(QPDF& pdf, const PdfDocument& document) {
  Object dictionary = Object::newDictionary();
  dictionary.replaceKey("/Producer", Object::newUnicodeString(document.producer));
  if (!document.date.empty()) {
    dictionary.replaceKey("/CreationDate", Object::newString(document.date));
    dictionary.replaceKey("/ModDate", Object::newString(document.date));
  }
  pdf.getTrailer().replaceKey("/Info", pdf.makeIndirectObject(dictionary));
}

std::string written(QPDF& pdf) {
  QPDFWriter writer(pdf);
  writer.setOutputMemory();
  writer.setMinimumPDFVersion("1.5");
  writer.setObjectStreamMode(qpdf_o_generate);
  writer.setDeterministicID(true);
  writer.write();
  const std::shared_ptr<Buffer> bytes(writer.getBuffer());
  return {bytes->getBuffer(), bytes->getBuffer() + bytes->getSize()};
}

}  // namespace

std::string pdfBytes(const PdfDocument& document) {
  QPDF pdf;
  pdf.emptyPDF();
  const Object resources = resourcesOf(pdf, document.fonts);
  QPDFPageDocumentHelper pages(pdf);
  for (const std::string& content : document.pages) {
    pages.addPage(QPDFPageObjectHelper(pageOf(pdf, document, content, resources)), false);
  }
  tellOrigin(pdf, document);
  return written(pdf);
}

}  // namespace qxfont
