#include "hosts/com/ErrorResult.h"

#include <filesystem>
#include <functional>
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
  const auto disk = [] { throw std::filesystem::filesystem_error("disk", std::error_code()); };
  EXPECT_EQ(guarded(disk), result(kPathAccess));
  EXPECT_EQ(errorText().rfind("Path/File access error: ", 0), 0U);
  EXPECT_EQ(guarded([] { throw std::bad_function_call(); }), result(kInternal));
  EXPECT_EQ(errorText().rfind("Internal error: ", 0), 0U) << "a fault of the program itself";
  EXPECT_TRUE(FAILED(guarded([] { throw 5; })));
}

}  // namespace
}  // namespace korvane
