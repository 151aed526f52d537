#include "log/logger.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <regex>
#include <string>

namespace Quorel {
namespace {

// Runs each test in a fresh directory, since the log directory is relative.
class LoggerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/qrlsl-logger-XXXXXX";
    ASSERT_NE(mkdtemp(pattern), nullptr);
    dir = pattern;
    ASSERT_NE(getcwd(oldDir, sizeof(oldDir)), nullptr);
    ASSERT_EQ(chdir(dir.c_str()), 0);
  }
  void TearDown() override {
    ASSERT_EQ(chdir(oldDir), 0);
    std::system(("rm -rf " + dir).c_str());
  }
  static std::string ReadAll(const std::string& path) {
    std::ifstream in(path);
    return std::string(std::istreambuf_iterator<char>(in), {});
  }

  std::string dir;
  char oldDir[4096];
};

TEST_F(LoggerTest, WithoutDirectoryWritesNothing) {
  Logger logger;
  EXPECT_EQ(logger.Write("lost"), -1);
  EXPECT_EQ(logger.Write("named", "lost"), -1);
  struct stat info;
  EXPECT_NE(stat("logs", &info), 0);
}

TEST_F(LoggerTest, NamedLogAppendsTimestampedLines) {
  ASSERT_EQ(mkdir("logs", 0755), 0);
  Logger logger;
  EXPECT_EQ(logger.Write("trace", "first"), 1);
  EXPECT_EQ(logger.Write("trace", "second"), 1);
  std::string content = ReadAll("logs/trace.log");
  std::regex line(R"(\[\d\d:\d\d:\d\d\] first\n\[\d\d:\d\d:\d\d\] second\n)");
  EXPECT_TRUE(std::regex_match(content, line)) << content;
}

TEST_F(LoggerTest, DailyLogIsNamedByDate) {
  ASSERT_EQ(mkdir("logs", 0755), 0);
  Logger logger;
  EXPECT_EQ(logger.Write("one"), 1);
  EXPECT_EQ(logger.Write("two"), 1);
  char name[64];
  std::time_t now = std::time(nullptr);
  std::strftime(name, sizeof(name), "logs/%m_%d_%y.log", std::localtime(&now));
  std::string content = ReadAll(name);
  EXPECT_NE(content.find("] one\n"), std::string::npos) << name;
  EXPECT_LT(content.find("] one\n"), content.find("] two\n"));
}

}  // namespace
}  // namespace Quorel
