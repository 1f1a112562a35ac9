// Forms of texts that come again.
#include "Velto/Value/RecentForms.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace velto {
namespace {

TEST(RecentForms, AreThoseOfTheText) {
  std::vector<String> texts{String(), "x", std::string(100, 'a') + " b"};
  for (int number = 0; number < 2'000; ++number) texts.emplace_back("some name " + std::to_string(number));
  const auto recent = std::make_unique<RecentForms>();
  for (int round = 0; round < 2; ++round) {
    for (const String& text : texts) {
      for (const char* name : {"upperCamelCased", "lowerCamelCased", "snakeCased", "upperCamelCased"}) {
        const StringForm form = stringForm(name);
        ASSERT_EQ(recent->formOf(text, form), form(text)) << text << name;
      }
    }
  }
}

TEST(RecentForms, ShareTheTextThatWasMadeBefore) {
  const auto recent = std::make_unique<RecentForms>();
  const String text = "some name";
  const StringForm form = stringForm("upperCamelCased");
  const String first = recent->formOf(text, form);
  EXPECT_TRUE(recent->formOf(text, form).isSameAs(first));
}

TEST(RecentForms, AreThoseOfTheTextThatStandsInTheSameMemory) {
  const auto recent = std::make_unique<RecentForms>();
  for (int number = 0; number < 100; ++number) {
    const String text = "name " + std::to_string(number);  // most likely where the one before stood
    EXPECT_EQ(recent->formOf(text, stringForm("snakeCased")), String("name_" + std::to_string(number)));
  }
}

}  // namespace
}  // namespace velto
