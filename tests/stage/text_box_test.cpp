#include "stage/text_box.h"

#include <gtest/gtest.h>

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
                        {{{0, 0, "1"}, {key::kV, kCtrl}, {key::kV, 0}}, "1p\"é"},
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
  bench.platform.Director = [&] {
    EXPECT_FALSE(bench.platform.WantsText());
    bench.Press(key::kEsc);
  };
  bench.theatre.MsgBox("any");
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
