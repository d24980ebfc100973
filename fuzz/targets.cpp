#include "target.h"

// A target is a file of its own that defines one of these, and a line in both lists.
namespace qxfuzz {

extern const Target kAfm;
extern const Target kCff;
extern const Target kCharstrings;
extern const Target kCmap;
extern const Target kCollections;
extern const Target kConfig;
extern const Target kEexec;
extern const Target kGdef;
extern const Target kGlyf;
extern const Target kGlyphList;
extern const Target kGpos;
extern const Target kGsub;
extern const Target kNames;
extern const Target kOutline;
extern const Target kPfm;
extern const Target kProgram;
extern const Target kSfnt;
extern const Target kType1Charstrings;
extern const Target kWebFont;
extern const Target kWoff;
extern const Target kXml;

const std::vector<Target>& targets() {
  static const std::vector<Target> all = {
      kAfm,     kCff,     kCharstrings, kCmap,      kCollections, kConfig,
      kEexec,   kGdef,    kGlyf,        kGlyphList, kGpos,        kGsub,
      kNames,   kOutline, kPfm,         kProgram,   kSfnt,        kType1Charstrings,
      kWebFont, kWoff,    kXml};
  return all;
}

}  // namespace qxfuzz
