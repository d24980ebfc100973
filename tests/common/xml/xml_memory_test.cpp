#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "common/xml/expat_reader.h"

namespace {

// Allocations of this thread that still succeed; below 0: all do.
thread_local long allocationsLeft = -1;

void* allocate(std::size_t size) {
  if (allocationsLeft == 0) throw std::bad_alloc();
  if (allocationsLeft > 0) --allocationsLeft;
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

}  // namespace

// In the place of the library's own, for this whole program: single objects and arrays.
void* operator new(std::size_t size) {
  return allocate(size);
}
void* operator new[](std::size_t size) {
  return allocate(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace QXCommonNS::xml {
namespace {

// Names and values too long to be held without an allocation; an empty element, for which both
// handlers run in one go; and wrong end tags, after which a fresh parser is made.
const std::string kDocument =
    "<an-element-with-a-long-name an-attribute-with-a-long-name='and a value that is long'>"
    "<an-empty-element-with-a-long-name/></a-wrong-end-tag-with-a-long-name>"
    "<another-element-with-a-long-name></one-more-wrong-end-tag-of-length>"
    "<the-last-element-with-a-long-name/>";

class AllocationsFail {
 public:
  explicit AllocationsFail(long after) { allocationsLeft = after; }
  AllocationsFail(const AllocationsFail&) = delete;
  AllocationsFail& operator=(const AllocationsFail&) = delete;
  ~AllocationsFail() { allocationsLeft = -1; }
};

/// Reads on to the end, with memory for `allocations` more; whether that was enough.
bool readAll(ExpatReader& reader, long allocations) {
  const AllocationsFail fail(allocations);
  TagEvent event;
  try {
    while (reader.next(event)) {
    }
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

TEST(XmlMemory, WantOfMemoryInAHandlerReachesTheCaller) {
  long enough = 0;
  for (;; ++enough) {
    ASSERT_LT(enough, 1000);
    ExpatReader reader(kDocument);
    if (readAll(reader, enough)) break;
  }
  EXPECT_GT(enough, 10);
}

TEST(XmlMemory, AfterWantOfMemoryTheDocumentIsAtItsEnd) {
  for (long allocations = 0;; ++allocations) {
    ASSERT_LT(allocations, 1000);
    ExpatReader reader(kDocument);
    if (readAll(reader, allocations)) break;
    TagEvent event;
    int told = 0;
    while (reader.next(event)) ++told;
    EXPECT_LE(told, 1) << allocations;  // the start of an empty element whose end was lost
    EXPECT_FALSE(reader.next(event)) << allocations;
  }
}

}  // namespace
}  // namespace QXCommonNS::xml
