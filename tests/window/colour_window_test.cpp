// The nine colours of the main window: chosen, shown at once, stored and reset.

#include "settings/window/light_palette.h"
#include "tests/window/window_fixture.h"

namespace quorvane::test {
namespace {

class ColourWindowTest : public WindowTest {
 protected:
  QColor Shown(const char* control, QPalette::ColorRole role) { return Find(control)->palette().color(role); }
};

// Box 9 of the palette is &H0000C000, a green; every element shows it in its controls the moment it is chosen.
TEST_F(ColourWindowTest, EachElementShowsAndStoresTheChosenColourUntilTheReset) {
  constexpr auto kInk = QPalette::WindowText;
  const struct {
    const char *item, *caption, *key;
    const char* custom;  // The custom colour that is stored beside it.
    QPalette::ColorRole role;
    QString controls;
    const char* reset;
    QColor shown;
  } elements[] = {
      {"memMainText", "Main text", "MainText", "000000", kInk,
       "lblInputWord lblAnswers rbAnyLen rbSortLengthRev cbUpperCase lblBack lblToLit lblLex lblSelScrLit lblWebLink",
       "&H00000000", Qt::black},
      {"menMainBack", "Main background", "MainBack", "C0C0C0", QPalette::Window, "central", "&H8000000F",
       LightPalette().color(QPalette::Button)},
      {"menResBack", "Results background", "ListBack", "800000", QPalette::Base, "lbWordList", "&H00800000", 0x80},
      {"menResText", "Results text", "ListText", "00FFFF", QPalette::Text, "lbWordList", "&H0000FFFF", 0xFFFF00},
      {"menStatusText", "Status text", "StatusText", "0000C0", kInk, "lblStatus", "&H000000C0", 0xC00000},
      {"menTimerText", "Timer text", "TimerText", "0080FF", kInk, "lblTimer lblXofY", "&H0000FFFF", 0xFFFF00},
      {"menLettersText", "# Letters text", "LettersText", "FF0000", kInk, "lblNumLetters", "&H00FF0000", 0xFF},
      {"menGroupText", "Group text", "GroupText", "C000C0", QPalette::Text, "frLen frSortOrder frListProp",
       "&H00C000C0", 0xC000C0},
      {"menWordChText", "Word choice text", "SelectionText", "C000C0", kInk, "lblSelInc lblSelExc lblSelScr",
       "&H00C00000", 0xC0},
  };
  const auto check = [&](const auto& element, const QColor& colour) {
    for (const QString& control : element.controls.split(' ')) {
      EXPECT_EQ(Shown(ToText(control).c_str(), element.role), colour) << ToText(control);
    }
  };
  ASSERT_TRUE(Start());
  for (const auto& element : elements) {
    SCOPED_TRACE(element.item);
    door.scripts.push_back([&](QDialog& dialog) {
      EXPECT_EQ(ToText(dialog.windowTitle()), element.caption);
      ClickOn(In(dialog, "picColour_9"));
    });
    Item(element.item)->trigger();
    EXPECT_EQ(Setting("Colours", element.key), "&H0000C000");
    EXPECT_EQ(Setting("CustColours", element.key), element.custom);
    check(element, QColor(0, 0xC0, 0));
  }
  // All but the group text are as chosen after a restart; "Main text" is not touched by the frames' colour.
  Stop();
  ASSERT_TRUE(Start());
  for (const auto& element : elements) {
    if (std::string_view(element.key) != "GroupText") {
      check(element, QColor(0, 0xC0, 0));
    } else {
      EXPECT_NE(Shown("frLen", element.role), QColor(0, 0xC0, 0));
    }
  }
  Item("menResetAllToDefault")->trigger();
  Click("cmdV");  // What is chosen from now on is stored, too.
  const std::string file = ReadFile(dir.File("quorvane.conf"));
  EXPECT_NE(file.find("ListBold=Yes"), std::string::npos);
  for (const auto& element : elements) {
    EXPECT_NE(file.find(element.key + std::string("=") + element.reset), std::string::npos) << element.key;
    check(element, element.shown);
  }
}

TEST_F(ColourWindowTest, TheWindowsWaysToChoose) {
  const auto drag = [](const char* slider, int value) {
    return [slider, value](QDialog& dialog) { In<QSlider>(dialog, slider)->setValue(value); };
  };
  const struct {
    const char* name;
    std::function<void(QDialog&)> script;
    const char *colour, *custom;
  } cases[] = {
      {"cancel", Press("cmdCancel"), "&H000000FF", "0000C0"},
      {"default", Press("cmdDefault"), "&H000000C0", "0000C0"},
      {"a system colour", Press("picColour_33"), "&H8000000F", "0000C0"},
      {"the custom box", Press("picColour_32"), "&H000000C0", "0000C0"},
      {"sliders, then the custom command",
       [&](QDialog& dialog) {
         drag("sliRed", 1)(dialog);
         drag("sliGreen", 0xAB)(dialog);
         drag("sliBlue", 255)(dialog);
         EXPECT_EQ(ToText(In<QLineEdit>(dialog, "tbRed")->text()), "01");
         EXPECT_EQ(ToText(In(dialog, "picColour_32")->accessibleDescription()), "Custom colour - FFAB01");
         EXPECT_EQ(In(dialog, "picColour_32")->toolTip(), In(dialog, "picColour_32")->accessibleDescription());
         ClickOn(In(dialog, "cmdCustom"));
       },
       "&H00FFAB01", "FFAB01"},
      {"typed digits; others are dropped",
       [](QDialog& dialog) {
         auto* box = In<QLineEdit>(dialog, "tbGreen");
         box->selectAll();
         QTest::keyClicks(box, "gx7f");
         EXPECT_EQ(In<QSlider>(dialog, "sliGreen")->value(), 0x7F);
         ClickOn(In(dialog, "picColour_32"));
       },
       "&H00007FC0", "007FC0"},
      {"sliders moved, another box chosen: the custom colour is not kept",
       [&](QDialog& dialog) {
         drag("sliRed", 9)(dialog);
         ClickOn(In(dialog, "picColour_31"));
       },
       "&H00FFFFFF", "0000C0"},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.name);
    Store("Colours", "StatusText", "&H000000FF");
    Store("CustColours", "StatusText", "C0");  // Padded in front.
    ASSERT_TRUE(Start());
    door.scripts.push_back(one.script);
    Item("menStatusText")->trigger();
    EXPECT_EQ(Setting("Colours", "StatusText"), one.colour);
    EXPECT_EQ(Setting("CustColours", "StatusText"), one.custom);
    Stop();
  }
}

TEST_F(ColourWindowTest, TheSamplesHaveACustomColourOfTheirOwn) {
  ASSERT_TRUE(Start());
  for (const auto& [sample, caption] :
       {std::pair{"picColour_0", "Results text"}, {"picColour_1", "Results background"}}) {
    door.scripts.push_back([caption](QDialog& dialog) {
      EXPECT_EQ(ToText(dialog.windowTitle()), caption);
      ClickOn(In(dialog, "picColour_32"));
    });
    Click(sample);
  }
  EXPECT_EQ(Setting("Colours", "ListText"), "&H00FFFFFF");
  EXPECT_EQ(Setting("CustColours", "ListBack"), "FFFFFF");
}

}  // namespace
}  // namespace quorvane::test
