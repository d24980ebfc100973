#include "target.h"

// A target is a file of its own that defines one of these, and a line in both lists.
namespace qxfuzz {

extern const Target kCff;
extern const Target kCharstrings;
extern const Target kCmap;
extern const Target kCollections;
extern const Target kConfig;
extern const Target kGdef;
extern const Target kGlyf;
extern const Target kGpos;
extern const Target kGsub;
extern const Target kNames;
extern const Target kSfnt;
extern const Target kWebFont;
extern const Target kWoff;
extern const Target kXml;

const std::vector<Target>& targets() {
  static const std::vector<Target> all = {kCff,  kCharstrings, kCmap, kCollections, kConfig,
                                          kGdef, kGlyf,        kGpos, kGsub,        kNames,
                                          kSfnt, kWebFont,     kWoff, kXml};
  return all;
}

}  // namespace qxfuzz
