#include "stage/forms/text_box.h"

#include <gtest/gtest.h>

#include "tests/sight.h"
#include "tests/stage/bench.h"

namespace {

using namespace tests;

struct TextBoxes : testing::Test {
  TextBoxes() {
    bench.theatre.Show(form, kModeless);
    box.SetFocus();
  }
  Bench bench;
  std::shared_ptr<NotingForm> form = std::make_shared<NotingForm>(bench.theatre);
  TextBox box{*form, {0, 0, 3000, 500}, {}, "", 8};
};

TEST_F(TextBoxes, AreEditedByKeys) {
  struct Stroke {
    int code = 0;
    int shift = 0;
    const char* text = "";
  };
  struct Case {
    std::vector<Stroke> strokes;
    const char* result;
  };
  const Stroke back{key::kBackspace};
  const Stroke del{key::kDelete};
  const Stroke left{key::kLeft};
  const Stroke right{key::kRight};
  const Stroke home{key::kHome};
  const Stroke end{key::kEnd};
  const Case cases[] = {{{{0, 0, "João"}, back}, "Joã"},
                        {{{0, 0, "abc"}, home, {0, 0, "x"}, end, {0, 0, "y"}}, "xabcy"},
                        {{{0, 0, "abc"}, left, left, {0, 0, "-"}}, "a-bc"},
                        {{{0, 0, "abc"}, home, del, back}, "bc"},
                        {{{0, 0, "abc"}, {key::kHome, kShift}, {0, 0, "z"}}, "z"},
                        {{{0, 0, "abcd"}, {key::kLeft, kShift}, {key::kLeft, kShift}, back}, "ab"},
                        {{{0, 0, "abcd"}, home, {key::kRight, kShift}, {key::kEnd, kShift}, del}, ""},
                        {{{0, 0, "abcdefghij"}}, "abcdefgh"},
                        {{{0, 0, "abcdefgh"}, {key::kLeft, kShift}, {0, 0, "xyz"}}, "abcdefgx"},
                        {{{0, 0, "a\tb\n"}}, "ab"},
                        {{{0, 0, "1"}, {key::kV, kCtrl}}, "1p\"é"},
                        {{{0, 0, "1"}, {key::kV, 0}}, "1"},
                        {{{0, 0, "ac"}, left, {0, 0, "b"}, {0, 0, "!"}}, "ab!c"},
                        {{{0, 0, "ab"}, home, left, {0, 0, "x"}}, "xab"},
                        {{{0, 0, "ab"}, home, right, {0, 0, "x"}}, "axb"},
                        {{{0, 0, "ab"}, home, right, {key::kRight, kShift}, {0, 0, "x"}}, "ax"},
                        {{{0, 0, "~\x7F \x1F"}}, "~ "},
                        {{back, del, left, end}, ""}};
  bench.platform.SetClipboard("p\"é");
  for (const Case& each : cases) {
    box.Text = "";
    for (const Stroke& stroke : each.strokes) {
      if (stroke.code != 0) {
        bench.Press(stroke.code, stroke.shift);
      } else {
        bench.Type(stroke.text);
      }
    }
    EXPECT_EQ(box.Text.Get(), each.result);
  }
}

TEST_F(TextBoxes, ShowWhatIsSelectedAndWhereTheyAreWritten) {
  constexpr Words kWords{"LiberationSans-Bold", 12, 0xFFFFFF};
  constexpr Double kLine = 12 * 20 * 1.2;
  struct Case {
    std::string text;
    std::vector<int> keys;  // all with Shift
    std::size_t from;       // of the selection
    std::size_t to;
    std::size_t caret;
  };
  const std::string longest(60, 'm');
  const Case cases[] = {{"", {}, 0, 0, 0},
                        {"abcd", {}, 4, 4, 4},
                        {"abcd", {key::kLeft, key::kLeft}, 2, 4, 2},
                        {"abcd", {key::kHome, key::kRight}, 1, 4, 1},
                        {longest, {}, 60, 60, 60},
                        {longest, {key::kHome}, 0, 60, 0}};
  const TwipRect area{1500, 3000, 4500, 600};
  const Style style{{"MS Sans Serif", 12, true}, Rgb(255, 255, 255)};
  const Image below(*form, {area.left, area.top, area.width, area.height},
                    bench.theatre.Pictures.Named("ImagePedra1"), true);
  TextBox seen(*form, {area.left, area.top, area.width, area.height}, style, "", 60);
  bench.platform.Look(true);
  box.Visible = false;
  for (const Case& each : cases) {
    for (const auto& [focused, scale] : {std::pair(true, 1.0), {false, 1.0}, {true, 1.8}}) {
      SCOPED_TRACE(each.text + (focused ? " focused at " : " at ") + std::to_string(scale));
      bench.platform.Rescale(scale);
      bench.theatre.DoEvents();
      seen.SetFocus();
      seen.Text = "";
      bench.Type(each.text);
      for (const int code : each.keys) bench.Press(code, kShift);
      if (!focused) box.SetFocus();
      Sight sight(bench.theatre);
      const auto width = [&](std::size_t to) { return sight.Width(each.text.substr(0, to), kWords); };
      // With a margin of 60 twips on both sides the caret is always inside.
      const Double left = area.left + 60 - std::max(0.0, width(each.caret) + 15 - (area.width - 2 * 60));
      const Double top = area.top + (area.height - kLine) / 2;
      sight.Within(area);
      sight.Frame(area, 0x606060);
      sight.Fill({left + width(each.from), top, width(each.to) - width(each.from), kLine}, 0x3A5A8C);
      sight.Write(each.text, kWords, {left, top, area.width, kLine});
      if (focused) sight.Fill({left + width(each.caret), top, 15, kLine}, 0xFFFFFF);
      bench.theatre.PaintNow();
      sight.ExpectShown();
    }
  }
}

TEST_F(TextBoxes, OfDialogsHaveAnEnd) {
  bench.platform.SetClipboard(std::string(1 << 20, 'x'));
  bench.platform.Director = [&] {
    bench.Press(key::kV, kCtrl);
    bench.Press(key::kEnter);
  };
  EXPECT_EQ(bench.theatre.InputBox("any"), std::string(254, 'x'));
}

TEST_F(TextBoxes, AskForTextWhileTheyHoldTheFocus) {
  std::vector<bool> wanted;
  const int keys[] = {key::kTab, key::kTab, key::kTab, key::kEsc};
  bench.platform.Director = [&] {
    wanted.push_back(bench.platform.WantsText());
    bench.Press(keys[wanted.size() - 1]);
  };
  bench.theatre.InputBox("any");
  EXPECT_EQ(wanted, (std::vector<bool>{true, false, false, true}));
  const std::string message(80, 'm');
  bench.platform.Director = [&] {
    EXPECT_FALSE(bench.platform.WantsText());
    const Double room = bench.theatre.ActiveForm()->Width - 2 * 240;
    const Double words = Sight(bench.theatre).Width(message, {"LiberationSans-Regular", 9.75});
    EXPECT_GT(room, words);
    EXPECT_LT(room, words + 2 * 15);
    bench.Press(65);
    EXPECT_NE(bench.theatre.ActiveForm(), form.get()) << "no key of its button";
    bench.Press(key::kSpace);
  };
  bench.theatre.MsgBox(message);
}

TEST_F(TextBoxes, ShowATextThatIsSetAndTypeOverAllOfIt) {
  bench.platform.Look(true);
  TextBox seen(*form, {1500, 3000, 4500, 600}, {{}, Rgb(255, 255, 255)}, "", 9);
  seen.SetFocus();
  const std::vector<Pixel> empty = bench.Pixels();
  seen.Text = "abc";
  EXPECT_NE(bench.Pixels(), empty);
  bench.Press(key::kEnd);
  seen.SelectAll();
  bench.Type("z");
  EXPECT_EQ(seen.Text.Get(), "z");
}

TEST_F(TextBoxes, RefuseWhatTheyDoNotAccept) {
  box.Accepts = [](char32_t character) { return character != U'x'; };
  bench.Type("axbx");
  EXPECT_EQ(box.Text.Get(), "ab");
}

TEST_F(TextBoxes, HearKeysAfterTheirForm) {
  form->Notes();
  bench.Type("a");
  bench.Press(key::kBackspace);
  EXPECT_EQ(form->Notes(), "key8/0 ");
  EXPECT_EQ(box.Text.Get(), "");
}

}  // namespace
