#include "hosts/com/ErrorResult.h"

#include <new>
#include <stdexcept>

#include "hosts/com/ComTest.h"
#include "platform/Failure.h"

namespace korvane {
namespace {

constexpr HRESULT result(int number) {
  return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number);
}

TEST(ErrorResult, ABodyThatEndsWellIsNoError) {
  EXPECT_EQ(guarded([] {}), S_OK);
}

TEST(ErrorResult, AFailureIsItsNumberAndItsText) {
  EXPECT_EQ(guarded([] { throw Failure(kOverflow, "the f\u00e4der"); }), result(6));
  EXPECT_EQ(errorText(), "Overflow: the f\u00e4der");
  EXPECT_EQ(errorText(), "") << "it is told once";
}

TEST(ErrorResult, NoExceptionLeavesAMethod) {
  EXPECT_EQ(guarded([] { throw std::out_of_range("vector"); }), result(kSubscript));
  EXPECT_EQ(errorText(), "Subscript out of range");
  EXPECT_EQ(guarded([] { throw std::bad_alloc(); }), result(kOutOfMemory));
  EXPECT_EQ(errorText(), "Out of memory");
  EXPECT_EQ(guarded([] { throw std::runtime_error("disk"); }), result(kPathAccess));
  EXPECT_EQ(errorText(), "Path/File access error: disk");
  EXPECT_TRUE(FAILED(guarded([] { throw 5; })));
}

}  // namespace
}  // namespace korvane
