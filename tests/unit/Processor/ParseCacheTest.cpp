// What is read once, and what is read again.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TestHost.h"

namespace velto {
namespace {

using test::TestHost;

class ParseCacheTest : public testing::Test {
 protected:
  ParseCache::FileStatements request(const char* path, Scanner::Mode mode = Scanner::Mode::template_) {
    return cache.getOrParse(Url(path), mode);
  }

  TestHost host;
  ParseCache cache{host.logger, host.files};
};

TEST_F(ParseCacheTest, ReadsAFileOnce) {
  host.files->files["/a"] = "one";
  const auto first = request("a");
  host.files->files["/a"] = "two";
  EXPECT_EQ(request("a"), first);
  cache.clear();
  EXPECT_EQ(request("a")->front().as<Verbatim>()->text, "two");
}

/// Forgets all files at each message.
struct ForgetfulLogger final : Logger {
  void report(const Message&) override { cache->clear(); }
  ParseCache* cache = nullptr;
};

TEST_F(ParseCacheTest, CanBeClearedWhileItParses) {
  const auto logger = std::make_shared<ForgetfulLogger>();
  ParseCache forgetful(logger, host.files);
  logger->cache = &forgetful;
  host.files->files["/b/a"] = "<% return %>x";
  EXPECT_EQ(forgetful.getOrParse(Url("b/./a"), Scanner::Mode::template_)->size(), 2u);
  ASSERT_EQ(forgetful.cache().size(), 1u);
  EXPECT_EQ(forgetful.cache().begin()->first.path(), "b/a");
}

TEST_F(ParseCacheTest, FoldsAddressesAndShowsTheFirst) {
  host.files->files["/b/a"] = "text";
  const auto first = request("b/./a");
  EXPECT_EQ(request("b/a"), first);
  EXPECT_EQ(request("c/../b//a"), first);
  EXPECT_EQ(first->front().range().file, "b/./a");
  EXPECT_EQ(cache.cache().size(), 1u);
}

TEST_F(ParseCacheTest, DoesNotTellModesApart) {
  host.files->files["/a"] = "text";
  const auto first = request("a", Scanner::Mode::template_);
  EXPECT_EQ(request("a", Scanner::Mode::program), first);
  EXPECT_TRUE(first->front().as<Verbatim>());
}

TEST_F(ParseCacheTest, ReportsAFaultyFileAnewOnEachRequest) {
  host.files->files["/a"] = "<% var %>";
  for (std::size_t request = 1; request <= 2; ++request) {
    EXPECT_THROW(cache.getOrParse(Url("a"), Scanner::Mode::template_), ParseCache::Error);
    EXPECT_EQ(host.logger->messages.size(), request);
  }
  EXPECT_TRUE(cache.cache().empty());
}

TEST_F(ParseCacheTest, LetsScanErrorsAndReadErrorsPass) {
  host.files->files["/a"] = "<%# open";
  EXPECT_THROW(request("a"), VeltoError);
  EXPECT_THROW(request("missing"), FileError);
  EXPECT_EQ(host.logger->messages.size(), 1u);
}

TEST_F(ParseCacheTest, KeepsAnEmptyFile) {
  host.files->files["/a"] = "";
  EXPECT_TRUE(request("a")->empty());
  EXPECT_EQ(cache.cache().size(), 1u);
}

TEST_F(ParseCacheTest, TellsItsErrorsByName) {
  EXPECT_STREQ(ParseCache::Error().what(), "ParseCache.Error");
  EXPECT_STREQ(VeltoError(VeltoError::Step::scan).what(), "VeltoError");
}

}  // namespace
}  // namespace velto
