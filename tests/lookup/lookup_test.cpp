#include <gtest/gtest.h>

#include "lookup/resources.h"

namespace quorvane::test {
namespace {

TEST(Lookup, AddressesOfTheFiveResources) {
  struct Row {
    const char *setting, *word;
    const char* end;  // Behind the host.
  };
  for (const auto& [setting, word, end] : {
           Row{"1", "cat", "/cgi-bin/dictionary?book=Dictionary&va=cat&x=15&y=12"},
           Row{"2", "cat", "/search?q=cat"},
           Row{"3", "cat", "/search?q=cat"},
           Row{"4", "cat", "/search.aspx?define=cat"},
           Row{"5", "cat", "/search?hl=en&q=cat&x=15&y=12"},
           Row{"5", "caf\xE9 'n\" &<>", "/search?hl=en&q=caf\xE9 'n\" &<>&x=15&y=12"},
       }) {
    const std::string address = LookupAddress(setting, word).value_or("");
    ASSERT_TRUE(address.starts_with("http://")) << setting;
    EXPECT_EQ(address.substr(address.find('/', 7)), end) << setting;
  }
  EXPECT_NE(*LookupAddress("2", "cat"), *LookupAddress("3", "cat"));
  for (const char* setting : {"", "0", "6", "7", "11", "1 ", "x"}) {
    EXPECT_EQ(LookupAddress(setting, "cat"), std::nullopt) << setting;
  }
}

}  // namespace
}  // namespace quorvane::test
