#include "platform/library.h"

#include <gtest/gtest.h>

#include "base/error.h"

namespace vellumark::platform {
namespace {

TEST(Library, FindsFunctionsBesideTheExecutable) {
  const Library library = Library::besideExecutable("test_platform_sample");
  EXPECT_EQ(library.function<int(int)>("twice")(21), 42);
}

TEST(Library, NamesWhatIsMissing) {
  try {
    Library::besideExecutable("test_platform_sample").function<int(int)>("thrice");
    FAIL();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.number(), 53);
    EXPECT_NE(error.description().find("thrice"), std::string::npos);
  }
  try {
    Library::besideExecutable("no_such_library");
    FAIL();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.number(), 53);
    EXPECT_NE(error.description().find("libno_such_library.so"), std::string::npos);
  }
}

}  // namespace
}  // namespace vellumark::platform
