#pragma once

#include "font/contract/font_key.h"
#include "pool/tables/font_family.h"

namespace QXFontService_NS {

/// The step of the fallback that gave an answer, for hosts that ask why a face was chosen.
enum class MatchStep {
  none,     ///< the family has no face at all
  exact,    ///< weight, italic and stretch as asked
  stretch,  ///< weight and italic as asked, normal stretch
  upright,  ///< italic was asked, the upright face of the same weight stands in
  rounded,  ///< the weight rounded up to a hundred
  filled    ///< an entry that the filling of the family made
};

/// Finds the face of `family` for `key`; 0 in weight or stretch counts as 400 or 5.
///
/// Tried in this order, each an exact find: the key itself; normal stretch; for italic the
/// upright face of the same weight, in the stretch asked and then the normal one; the weight
/// rounded up to a hundred. Then the family is filled (see `fillFamily`) and the last is tried
/// again. The filling stays in the family, so later answers depend on it: hosts rely on the same
/// request giving the same face for the life of the process.
///
/// `step`, where given, receives how the answer came about. A family without faces answers a
/// null ref. The caller holds the global lock: the family may be changed.
FS_FontRef matchFont(FS_FontFamily& family, const FS_FontKey& key, MatchStep* step = nullptr);

/// Gives `family` an entry for each weight from 100 to 900, upright and italic, in normal
/// stretch, that it lacks. At 500 and below a missing weight takes the nearest lighter face, else
/// the nearest heavier; above 500 the nearest heavier, else the nearest lighter. A family without
/// upright (italic) faces takes the italic (upright) ones. Entries that stand are never replaced.
void fillFamily(FS_FontFamily& family);

}  // namespace QXFontService_NS
