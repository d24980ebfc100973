#include "type1/type1_pfb.h"

#include "type1/program/embed_stream.h"

namespace QXFontService_NS {

FS_Type1PFB::~FS_Type1PFB() = default;

unsigned int FS_Type1PFB::getClassID() const {
  return kClassID;
}

bool FS_Type1PFB::isKindOf(unsigned int id) const {
  return id == kClassID || FS_Type1Printer::isKindOf(id);
}

UnicodeString FS_Type1PFB::getClassName() const {
  return u"FS_Type1PFB";
}

FS_FontFileType FS_Type1PFB::getFontFileType(int) const {
  return FS_FILETYPE_TYPE1_PFB;
}

int FS_Type1PFB::getFileKind() const {
  return 2;
}

bool FS_Type1PFB::answerWithoutGlyphs() const {
  return true;
}

bool FS_Type1PFB::readHeader(QXError* error, std::istream& stream) {
  return headerRead(error, type1::readPfbHeader(stream, header_));
}

bool FS_Type1PFB::writeEmbedStream(const char* codes, int count, QXMemStream& stream, int& length1,
                                   int& length2, int& length3, const Type1CMapArray* pageMap) {
  return writeWanted(codes, count, pageMap, [&](std::istream& program, const auto& wanted) {
    return type1::writePfbStream(program, wanted, stream, {length1, length2, length3});
  });
}

}  // namespace QXFontService_NS
