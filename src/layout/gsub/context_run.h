#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "layout/gsub/context_output.h"
#include "layout/table/lookup_list.h"

namespace QXFontService_NS::layout {

/// Runs contextual `GSUB` lookups with the lookups nested in them. One object serves the positions
/// of a whole pass.
///
/// Nested lookups match the unchanged glyphs and write into one output, so what one does depends
/// on its index and its position alone. A lookup that is met again at the position where it is in
/// progress would never end, and does nothing; one that is done is not run again. Lookups in
/// progress stand on a heap stack: sound rules may nest as deep as a text is long.
class ContextRun {
 public:
  ContextRun(const FS_LayoutTables& font, const TTI_LookupList& lookups)
      : font_(font), lookups_(lookups) {}

  /// Runs `lookup`, one of the list, at `position`.
  ///
  /// @param glyphs stays unchanged; later records do not see what earlier ones did
  /// @param position moves to the furthest place that a nested lookup reached
  /// @param skipped what the last nested ligature passed over, if one was tried
  /// @return how many glyphs of `output()` replace those from the old position to the new one; 0
  ///   if nothing applied. It may exceed the size of `output()`: clip it once.
  int apply(const TTI_Lookup& lookup, const GlyphSequence& glyphs, int& position,
            std::vector<int>& skipped);

  /// Whether a rule matched in the last `apply`, even without effect, so that there is an output.
  [[nodiscard]] bool matched() const { return matched_; }
  /// What the glyphs from the old position on became; the rest of the sequence follows.
  [[nodiscard]] const ContextOutput& output() const { return output_; }

 private:
  using Records = std::span<const TTI_SubstLookupRecord>;
  /// A lookup at a position.
  using Place = std::uint64_t;

  /// A contextual lookup in progress.
  struct Frame {
    Place place = 0;
    int start = 0;
    Records records;             ///< those still to run
    std::size_t passedFrom = 0;  ///< where its passed-over places begin in `passed_`
    int result = 0;
    int furthest = 0;
    int before = 0;  ///< where the record in progress began
    /// The lowest level whose repetition was cut off within this one: the outcome depends on the
    /// levels from there on.
    std::size_t dependsOn = 0;
    bool touchedSkipped = false;
  };
  /// What a nested contextual lookup did.
  struct Outcome {
    int result;
    int position;
    ContextOutput::State output;
    std::optional<std::vector<int>> skipped;  ///< if it wrote there
  };

  [[nodiscard]] Place placeOf(const TTI_Lookup& lookup, int position) const;
  int match(const TTI_Lookup& lookup, int position, Records& records);
  bool enter(const TTI_Lookup& lookup, int position);
  int runToEnd();
  void runRecord(const TTI_SubstLookupRecord& record);
  [[nodiscard]] int placeOfRecord(const Frame& frame, int sequenceIndex) const;
  void runNestedContext(const TTI_Lookup& lookup);
  bool mayEnter(Place place);
  bool repeatOutcome(Place place);
  int finishFrame();
  void keepOutcome(const Frame& frame, int result);
  void absorb(int result);
  int runSimple(const TTI_Lookup& lookup);
  int writeOne(const GlyphIDClassPair& pair);
  int writeSequence(const GlyphIDArray& sequence);
  int writeLigature(const TTI_Lookup& lookup);
  GlyphIDClassPair findLigature(const TTI_Lookup& lookup);

  const FS_LayoutTables& font_;
  const TTI_LookupList& lookups_;

  // Of the call in progress.
  const GlyphSequence* glyphs_ = nullptr;
  std::vector<int>* skipped_ = nullptr;
  int position_ = 0;
  bool matched_ = false;
  ContextOutput output_;
  std::vector<Frame> frames_;
  std::vector<int> passed_;                        ///< of all frames, one behind the other
  std::vector<int> passedInMatch_;                 ///< of the match in progress
  std::vector<int> passedByLigature_;              ///< of the ligature in progress
  std::unordered_map<Place, std::size_t> active_;  ///< levels in progress, once there is nesting
  std::unordered_map<Place, Outcome> outcomes_;
  GlyphIDArray sequence_;
};

}  // namespace QXFontService_NS::layout
