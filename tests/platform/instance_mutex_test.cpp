#include "platform/instance_mutex.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <optional>

#include "platform/environment_guard.h"
#include "support/temp_folder.h"

namespace vellumark::platform {
namespace {

TEST(InstanceMutex, MarksAsLongAsAnyInstanceLives) {
  const test::TempFolder folder;
  const test::EnvironmentGuard runtime("XDG_RUNTIME_DIR", folder.root().string());
  EXPECT_FALSE(InstanceMutex::isSet("A mark/1"));
  std::optional<InstanceMutex> first(std::in_place, "A mark/1");
  std::optional<InstanceMutex> second(std::in_place, "A mark/1");
  EXPECT_TRUE(InstanceMutex::isSet("A mark/1"));
  EXPECT_FALSE(InstanceMutex::isSet("Another mark"));
  first.reset();
  EXPECT_TRUE(InstanceMutex::isSet("A mark/1"));
  second.reset();
  EXPECT_FALSE(InstanceMutex::isSet("A mark/1"));
}

TEST(InstanceMutex, IsGoneWithItsProcess) {
  const test::TempFolder folder;
  const test::EnvironmentGuard runtime("XDG_RUNTIME_DIR", folder.root().string());
  const pid_t child = fork();
  if (child == 0) {
    const InstanceMutex mutex("mark");
    _exit(InstanceMutex::isSet("mark") ? 0 : 1);  // without any clean-up
  }
  int status = -1;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0);
  EXPECT_FALSE(InstanceMutex::isSet("mark"));
}

TEST(InstanceMutex, NeverFails) {
  const test::EnvironmentGuard runtime("XDG_RUNTIME_DIR", "/no/such/folder");
  const InstanceMutex mutex("mark");
  EXPECT_FALSE(InstanceMutex::isSet("mark"));
}

}  // namespace
}  // namespace vellumark::platform
