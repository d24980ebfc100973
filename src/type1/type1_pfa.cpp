#include "type1/type1_pfa.h"

#include "type1/program/embed_stream.h"

namespace QXFontService_NS {

FS_Type1PFA::~FS_Type1PFA() = default;

unsigned int FS_Type1PFA::getClassID() const {
  return kClassID;
}

bool FS_Type1PFA::isKindOf(unsigned int id) const {
  return id == kClassID || FS_Type1Printer::isKindOf(id);
}

UnicodeString FS_Type1PFA::getClassName() const {
  return u"FS_Type1PFA";
}

FS_FontFileType FS_Type1PFA::getFontFileType(int) const {
  return FS_FILETYPE_TYPE1_PFA;
}

int FS_Type1PFA::getFileKind() const {
  return 1;
}

bool FS_Type1PFA::answerWithoutGlyphs() const {
  return false;
}

bool FS_Type1PFA::readHeader(QXError* error, std::istream& stream) {
  return headerRead(error, type1::readPfaHeader(stream, header_));
}

bool FS_Type1PFA::writeEmbedStream(const char* codes, int count, QXMemStream& stream, int& length1,
                                   int& length2, int& length3, const Type1CMapArray* pageMap) {
  return writeWanted(codes, count, pageMap, [&](std::istream& program, const auto& wanted) {
    return type1::writePfaStream(program, wanted, stream, {length1, length2, length3});
  });
}

}  // namespace QXFontService_NS
