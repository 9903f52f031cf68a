// Controls, arrays of them, and how the pointer and the keys find them.
#include <gtest/gtest.h>

#include "stage/forms/text_box.h"
#include "tests/stage/bench.h"

namespace {

using namespace tests;

constexpr Units kUnits{0.99375004F, 0.89999974F};

struct Forms : testing::Test {
  Bench bench;
  std::shared_ptr<NotingForm> form = std::make_shared<NotingForm>(bench.theatre, kUnits);
  PictureRef ball = bench.theatre.Pictures.Named("Imageball0");
  PictureRef large = bench.theatre.Pictures.Named("Imageball2");
};

TEST_F(Forms, SizesTurnIntoUnitsOfTheContainer) {
  Image image(*form, {0, 0, 225, 225}, ball, false);
  EXPECT_NEAR(image.Width, 226.415, 0.001);
  EXPECT_NEAR(image.Height, 250, 0.001);
  EXPECT_EQ(form->ScaleHeight(), Single(9000 / 0.89999974F));
  image.Picture = large;
  EXPECT_NEAR(image.Width, 241.5, 0.05);
  EXPECT_NEAR(image.Height, 266.7, 0.05);
  image.Width = 100;
  EXPECT_EQ(image.Width, 100);
  image.Picture = large;
  EXPECT_NEAR(image.Width, 241.5, 0.05);
  PictureBox box(*form, {0, 0, 975, 255});
  Image inside(box, {-15, 0, 1005, 270}, ball, true);
  EXPECT_EQ(inside.Width, 1005);
  inside.Width = box.Width;
  EXPECT_EQ(inside.Width, box.Width);
}

TEST_F(Forms, ArraysMakeElementsAfterTheLowest) {
  ControlArray<Image> array(*form, "array", [&](auto& fresh) {
    fresh.Design(0, Design{1080, 480, 465, 225}, nullptr, true);
    fresh(0).Visible = true;
  });
  array.Load(3);
  EXPECT_FALSE(array(3).Visible);
  EXPECT_TRUE(array(3).Stretch);
  EXPECT_EQ(array(3).Left, array(0).Left);
  EXPECT_EQ(array(3).Width, array(0).Width);
  EXPECT_EQ(array(3).Picture.Get(), nullptr);
  const auto refused = [](const std::function<void()>& statement) -> std::string {
    try {
      statement();
      return "";
    } catch (const RuntimeError& error) {
      return error.what();
    }
  };
  EXPECT_EQ(refused([&] { array.Load(3); }), "array(3) is loaded already");
  EXPECT_EQ(refused([&] { array.Load(-1); }), "array(-1) is out of bounds");
  EXPECT_EQ(refused([&] { array(1).Refresh(); }), "array(1) does not exist");
  EXPECT_EQ(refused([&] { array.Unload(0); }), "array(0) is of the design");
  EXPECT_EQ(refused([&] { array.Unload(9); }), "array(9) does not exist");
  array.Unload(3);
  EXPECT_EQ(refused([&] { array.Unload(3); }), "array(3) does not exist");
  array.Load(3);
}

TEST_F(Forms, ThePointerFindsTheTopmostVisibleControl) {
  std::string hits;
  ControlArray<Image> array(*form, "array", [&](auto& fresh) {
    fresh.Design(1, Design{0, 0, 1500, 1500}, ball, true);
  });
  array.Load(2);
  array.Load(3);
  for (Integer i = 2; i <= 3; i = i + 1) array(i).Visible = true;
  Label label(*form, {600, 0, 900, 900}, {}, "label");
  PictureBox box(*form, {1200, 0, 600, 600});
  Image inside(box, {300, 30, 3000, 3000}, ball, true);
  Single x = 0;
  Single y = 0;
  array.Click = [&](Integer index) { hits += std::to_string(index); };
  box.Click = [&] { hits += "b"; };
  inside.Click = [&] { hits += "i"; };
  inside.MouseMove = [&](Integer, Integer, Single X, Single Y) {
    x = X;
    y = Y;
  };
  bench.theatre.Show(form, kModeless);
  form->Notes();

  bench.ClickAt(150, 150);  // a made element lies directly above the lowest, below the others
  bench.ClickAt(750, 150);  // a label without a procedure does not pass the click on
  bench.ClickAt(1300, 150);
  bench.ClickAt(1650, 150);
  EXPECT_EQ(hits, "2bi");
  EXPECT_NEAR(x, 150, 0.01);
  EXPECT_NEAR(y, 120, 0.01);
  array(2).Visible = false;
  bench.ClickAt(150, 150);
  EXPECT_EQ(hits, "2bi3");
  array(1).ZOrder(0);
  bench.ClickAt(750, 150);
  bench.ClickAt(1300, 150);  // picture boxes stay above
  EXPECT_EQ(hits, "2bi31b");
  array(3).ZOrder(0);
  array.Unload(3);
  bench.ClickAt(150, 150);
  EXPECT_EQ(hits, "2bi31b1");
  EXPECT_EQ(form->Notes(), "");
  bench.ClickAt(6000, 4500);
  EXPECT_EQ(form->Notes(), "move click ");
  EXPECT_NEAR(form->x, 6000 / 0.99375004, 0.01);
  EXPECT_NEAR(form->y, 4500 / 0.89999974, 0.01);
}

TEST_F(Forms, ClicksGoWhereTheProgramHasPutThePointer) {
  const auto box = std::make_shared<NotingForm>(bench.theatre, Units{2, 3});
  box->Left = 3000;
  box->Top = 1500;
  bench.theatre.Show(form, kModeless);
  bench.theatre.Show(box, kModeless);
  bench.PointTo(100, 100);
  bench.platform.Send(PointerPressed{});  // which the program has not taken in yet
  bench.theatre.SetCursorPos({300, 200});
  box->Notes();
  bench.theatre.DoEvents();
  EXPECT_EQ(box->Notes(), "click ");
  bench.PointTo(4200, 1800);
  EXPECT_EQ(std::pair(box->x, box->y), std::pair(Single(600), Single(100)));
}

TEST_F(Forms, AControlThatIsGoneHasNoFocus) {
  bench.theatre.Show(form, kModeless);
  auto box = std::make_unique<TextBox>(*form, Design{0, 0, 900, 300}, Style{}, "", 9);
  box->SetFocus();
  box.reset();
  EXPECT_EQ(form->Focus(), nullptr);
  bench.Press(65);
  bench.Type("a");
  bench.Press(key::kTab);
}

TEST_F(Forms, AClickGivesTheFocusToWhatTakesIt) {
  bench.theatre.Show(form, kModeless);
  TextBox first(*form, {0, 0, 900, 300}, {}, "", 9);
  TextBox second(*form, {0, 600, 900, 300}, {}, "", 9);
  const Image image(*form, {0, 1200, 900, 300}, ball, true);
  for (const Double y : {100.0, 700.0, 1300.0}) {
    bench.ClickAt(100, y);
    bench.Type("x");
  }
  EXPECT_EQ(first.Text.Get() + '|' + second.Text.Get(), "x|xx");
}

TEST_F(Forms, AModalFormTakesAllInput) {
  const auto modal = std::make_shared<NotingForm>(bench.theatre, Units{}, "Modal");
  modal->Width = 3000;
  bench.theatre.Show(form, kModeless);
  EXPECT_EQ(form->Notes(), "activate ");
  int turn = 0;
  bench.platform.Director = [&] {
    switch (turn++) {
      case 0:
        EXPECT_EQ(bench.theatre.ActiveForm(), modal.get());
        bench.ClickAt(6000, 4500);
        bench.Press(65, 2);
        bench.ClickAt(100, 100);
        EXPECT_EQ(form->Notes(), "");
        EXPECT_EQ(modal->Notes(), "activate key65/2 move click ");
        return bench.platform.Send(CloseAsked{});
      default:
        FAIL() << "the form has been closed";
    }
  };
  bench.theatre.Show(modal, kModal);
  EXPECT_EQ(modal->Notes(), "unload ");
  EXPECT_FALSE(modal->Loaded());
  EXPECT_EQ(bench.theatre.ActiveForm(), form.get());
  bench.Press(27);
  EXPECT_EQ(form->Notes(), "key27/0 ");
}

/// Keeps the pointer, unless told not to, and notes what it hears of it.
struct HandForm : NotingForm {
  using NotingForm::NotingForm;
  bool Form_MouseDown(Integer Button, Integer Shift, Single X, Single Y) override {
    Note("down", Button, Shift, X, Y);
    if (opens) opens();
    return keeps;
  }
  void Form_MouseUp(Integer Button, Integer Shift, Single X, Single Y) override {
    Note("up", Button, Shift, X, Y);
  }
  void Form_MouseMove(Integer Button, Integer Shift, Single X, Single Y) override {
    Note("move", Button, Shift, X, Y);
  }
  void Form_Wheel(Integer Steps, Integer Shift) override {
    notes += "wheel" + std::to_string(Steps) + "/" + std::to_string(Shift) + " ";
  }
  void Note(const char* what, Integer button, Integer shift, Single across, Single down) {
    notes += what + std::to_string(button) + "/" + std::to_string(shift) + "@" +
             std::to_string(std::lround(across)) + "," + std::to_string(std::lround(down)) + " ";
  }
  bool keeps = true;
  std::function<void()> opens;
};

struct Hands : testing::Test {
  Hands() {
    form->Width = 3000;
    bench.theatre.Show(form, kModeless);
    form->Notes();
  }
  std::string Heard(std::vector<Event> events) {
    for (Event& event : events) bench.platform.Send(std::move(event));
    bench.theatre.DoEvents();
    return form->Notes();
  }
  std::string MovedTo(Double x, Double y, int shift = 0) {
    bench.platform.MoveTo(x, y, shift);
    return Heard({});
  }

  Bench bench;
  std::shared_ptr<HandForm> form = std::make_shared<HandForm>(bench.theatre);
  Image image{*form, {0, 0, 300, 300}, bench.theatre.Pictures.Named("barra"), true};
};

TEST_F(Hands, AFormKeepsThePointerUntilNoButtonIsDown) {
  std::string over_image;
  image.MouseMove = [&](Integer button, Integer, Single, Single) { over_image += std::to_string(button); };
  image.Click = [&] { over_image += "click"; };
  EXPECT_EQ(MovedTo(900, 600), "move0/0@900,600 ");
  EXPECT_EQ(Heard({PointerPressed{kRightButton, kCtrl}}), "down2/2@900,600 ");
  EXPECT_EQ(MovedTo(100, 100, kShift), "move2/1@100,100 ");
  EXPECT_EQ(Heard({PointerPressed{}}), "down1/0@100,100 ");
  EXPECT_EQ(MovedTo(6000, 600), "move3/0@6000,600 ");
  EXPECT_EQ(Heard({PointerReleased{kRightButton, 0}}), "up2/0@6000,600 ");
  EXPECT_EQ(MovedTo(6000, 900), "move1/0@6000,900 ");
  EXPECT_EQ(Heard({PointerReleased{}, PointerReleased{}}), "up1/0@6000,900 ");
  EXPECT_EQ(MovedTo(6000, 600), "");
  EXPECT_EQ(over_image, "");
  MovedTo(100, 100);
  EXPECT_EQ(Heard({PointerPressed{kRightButton}, PointerReleased{kRightButton}, PointerPressed{}}), "");
  MovedTo(150, 150);
  EXPECT_EQ(over_image, "0click1") << "the image hears of the main button alone, and of moves with it";
}

TEST_F(Hands, APressThatIsNotKeptIsAClickOfTheMainButton) {
  form->keeps = false;
  MovedTo(900, 600);
  EXPECT_EQ(Heard({PointerPressed{kMiddleButton}}), "down4/0@900,600 ");
  EXPECT_EQ(Heard({PointerPressed{}, PointerReleased{}}), "down1/0@900,600 click ");
  image.Enabled = false;
  MovedTo(100, 100);
  EXPECT_EQ(Heard({PointerPressed{}}), "down1/0@100,100 click ");
  EXPECT_EQ(Heard({WheelTurned{-2, kShift}}), "wheel-2/1 ");
}

TEST_F(Hands, ABoxThatOpensUnderAPressTakesThePointer) {
  form->opens = [&] { bench.theatre.MsgBox("any"); };
  bench.platform.Director = [&] {
    bench.platform.Send(PointerReleased{});
    bench.Press(key::kEsc);
  };
  MovedTo(900, 600);
  EXPECT_EQ(Heard({PointerPressed{}}), "down1/0@900,600 ");
  EXPECT_EQ(MovedTo(900, 900), "move0/0@900,900 ");
  form->opens = {};
  Heard({PointerPressed{}});
  bench.platform.Send(PointerReleased{});
  bench.theatre.ForgetInput();
  EXPECT_EQ(MovedTo(6000, 900), "") << "a release that is forgotten is one";
}

TEST_F(Forms, AFormMayStayWhenTheSystemClosesIt) {
  struct Staying : NotingForm {
    using NotingForm::NotingForm;
    bool Form_QueryUnload() override { return leaves; }
    bool leaves = false;
  };
  const auto staying = std::make_shared<Staying>(bench.theatre);
  bench.theatre.Show(staying, kModeless);
  const auto tell = [&](const Event& event) {
    bench.platform.Send(event);
    bench.theatre.DoEvents();
    return staying->Loaded();
  };
  EXPECT_TRUE(tell(CloseAsked{}));
  staying->leaves = true;
  EXPECT_FALSE(tell(CloseAsked{}));

  const auto last = std::make_shared<Staying>(bench.theatre);
  bench.theatre.Show(last, kModeless);
  tell(QuitAsked{});
  EXPECT_FALSE(last->Loaded()) << "the session's end does not ask";
}

TEST_F(Forms, ASessionThatEndsClosesTheInnermostFirst) {
  bench.theatre.Show(form, kModeless);
  bench.platform.Director = [&] { bench.platform.Send(QuitAsked{}); };
  EXPECT_EQ(bench.theatre.InputBox("any"), "");
  bench.theatre.Run();
  EXPECT_EQ(form->Notes(), "activate unload ");
}

TEST_F(Forms, TheActiveFormUnloadsWhileItsKeyIsHandled) {
  struct Fleeting : Form {
    explicit Fleeting(Stage& stage) : Form(stage, "Fleeting", {0, 0, 100, 100}) {}
    void Form_KeyDown(Integer, Integer) override { Unload(); }
  };
  bench.theatre.Show(std::make_shared<Fleeting>(bench.theatre), kModeless);
  bench.Press(65);
  EXPECT_EQ(bench.theatre.ActiveForm(), nullptr);
}

}  // namespace
