#include "harness/family_request.h"

#include <map>
#include <set>

#include "harness/listed_faces.h"

namespace qxbench {
namespace {

FamilyRequest requestFor(const std::string& family, int weight) {
  return {family, icu::UnicodeString::fromUTF8(family), weight};
}

/// A shuffle that is the same in every run.
void scatter(std::vector<FamilyRequest>& requests) {
  for (std::size_t i = 0; i < requests.size(); ++i)
    std::swap(requests[i], requests[(i * 7919 + 13) % requests.size()]);
}

int roundedUp(int weight) {
  return (weight + 99) / 100 * 100;
}

}  // namespace

std::vector<FamilyRequest> requestsForFaces() {
  std::vector<FamilyRequest> requests;
  for (const ListedFace& face : listedFaces()) {
    if (!face.italic) requests.push_back(requestFor(face.family, face.weight));
  }
  scatter(requests);
  return requests;
}

std::vector<FamilyRequest> requestsForGaps() {
  std::map<std::string, std::set<int>> weights;
  for (const ListedFace& face : listedFaces()) weights[face.family].insert(roundedUp(face.weight));
  std::vector<FamilyRequest> requests;
  for (const auto& [family, taken] : weights) {
    for (const int weight : {900, 800, 100, 600, 200}) {
      if (taken.count(weight) != 0) continue;
      requests.push_back(requestFor(family, weight));
      break;
    }
  }
  scatter(requests);
  return requests;
}

bool create(const FamilyRequest& request) {
  QXFontService_NS::FS_FontInfo font;
  return font.createFont(request.name, request.weight, false);
}

}  // namespace qxbench
