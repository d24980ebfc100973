#pragma once

#include <string>
#include <vector>

#include "harness/font_sets.h"

namespace qxbench {

/// Which way a ratio is good.
enum class Goal {
  atLeast,  ///< the ratio is peer / ours: how many times faster, or smaller, than the peer
  atMost    ///< the ratio is ours / peer: the peer is a floor that the work itself sets
};

/// One measured row. Times are nanoseconds for one `unit`; a row about memory holds bytes.
struct Outcome {
  std::string name;
  std::string peer;
  std::string unit;
  Goal goal = Goal::atLeast;
  double must = 0;
  double aim = 0;  ///< 0: none
  double ours = 0;
  double theirs = 0;

  [[nodiscard]] double ratio() const {
    return goal == Goal::atLeast ? theirs / ours : ours / theirs;
  }
  [[nodiscard]] bool met() const {
    return goal == Goal::atLeast ? ratio() >= must : ratio() <= must;
  }
};

/// How a cost grows: its ratio to the cost at the smallest size, or a cost of its own unit.
struct Growth {
  std::string name;
  double ratio = 0;
  double limit = 0;

  [[nodiscard]] bool met() const { return ratio <= limit; }
};

/// What keeps a row out of the table.
struct Remark {
  std::string name;
  std::string text;
};

/// How to measure. Short slices and many rounds: on a machine that does other work too, a short run
/// is now and then left alone, a long one never.
struct Settings {
  int rounds = 21;
  double slice = 0.003;  ///< seconds for which the work of one side is repeated in a round
  bool brief = false;    ///< small sets, one round: whether rows run at all
};

/// What a row is given, and where it leaves its results.
class Bench {
 public:
  Bench(Settings settings, FontSets fonts) : settings_(settings), fonts_(std::move(fonts)) {}

  [[nodiscard]] const Settings& settings() const { return settings_; }
  [[nodiscard]] bool brief() const { return settings_.brief; }
  [[nodiscard]] const FontSets& fonts() const { return fonts_; }

  /// Names the row that runs now; its results carry the number.
  void begin(std::string number) { number_ = std::move(number); }

  void add(Outcome outcome);
  void add(Growth growth);
  /// The two sides do not do equal work, so that a ratio would say nothing.
  void notComparable(const std::string& name, const std::string& why);
  /// A row that is not measured here: a font, or a peer, is missing.
  void leaveOut(const std::string& name, const std::string& why);

  struct Numbered {
    std::string number;
    Outcome outcome;
  };
  [[nodiscard]] const std::vector<Numbered>& outcomes() const { return outcomes_; }
  [[nodiscard]] const std::vector<Growth>& growths() const { return growths_; }
  [[nodiscard]] const std::vector<Remark>& unequal() const { return unequal_; }
  [[nodiscard]] const std::vector<Remark>& leftOut() const { return leftOut_; }

 private:
  Settings settings_;
  FontSets fonts_;
  std::string number_;
  std::vector<Numbered> outcomes_;
  std::vector<Growth> growths_;
  std::vector<Remark> unequal_;
  std::vector<Remark> leftOut_;
};

/// A row of the bench. A file below rows/ defines one at namespace scope, and is all that a new
/// row needs:  const Row kRow{"7", "text to glyph ids, Latin", run};
struct Row {
  using Run = void (*)(Bench& bench);

  Row(const char* number, const char* name, Run run);

  std::string number;
  std::string name;
  Run run;
};

/// The rows of this program, by number.
std::vector<const Row*> allRows();

}  // namespace qxbench
