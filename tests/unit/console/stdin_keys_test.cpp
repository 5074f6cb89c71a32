// What the bytes of standard input are as keys.
#include "console/stdin_keys.h"

#include <gtest/gtest.h>

namespace zoka {
namespace {

/// The keys one behind the other, each ended by a bar; `*left` gets what is not yet a key.
std::string keys_of(std::string bytes, std::string* left = nullptr) {
  std::string keys;
  for (const TFeedItem& item : keys_of_text(&bytes)) keys += item.bytes + "|";
  if (left != nullptr) *left = bytes;
  return keys;
}

TEST(StdinKeys, ALineFeedIsReturnAndACarriageReturnNothing) {
  EXPECT_EQ(keys_of("aあ\r\nｱ\n\n"), "a|あ|\x0A|ｱ|\x0A|\x0A|");
}

TEST(StdinKeys, AnUnfinishedCharacterStays) {
  std::string left;
  EXPECT_EQ(keys_of("a\xE3\x81", &left), "a|");
  EXPECT_EQ(left, "\xE3\x81");
}

TEST(StdinKeys, AStrayLeadByteSwallowsNoReturn) {
  std::string left;
  EXPECT_EQ(keys_of("\xFFx\n\xE3\xE3\x81\n\xF0\n", &left),
            "\xFF|x|\x0A|\xE3|\xE3\x81|\x0A|\xF0|\x0A|");
  EXPECT_EQ(left, "");
}

}  // namespace
}  // namespace zoka
