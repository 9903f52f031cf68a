// The screens that come over the play form: what closes them, and what they leave as it was.
#include <gtest/gtest.h>

#include <array>
#include <set>

#include "records/FrmMostraRecords.h"
#include "screens/FrmHelp.h"
#include "screens/pointer.h"
#include "tests/player.h"

namespace {

using namespace tests;

struct Screen {
  const char* form;
  int opened_by;  // a key; 0 if the game shows it without one
  std::set<int> closed_by;
  bool by_click;
};

const Screen kScreens[] = {{"FrmHelp", 112, {112, 13, 27}, true},
                           {"pause", 80, {80, 19, 13, 27}, false},
                           {"FrmMostraRecords", 0, {13, 27}, true}};

/// Opens the screen, does something at it, tells whether that closed it and comes back to the play form.
bool Closes(Mesa& mesa, const Screen& screen, const Move& act) {
  bool closed = true;
  const Move first = [&] {
    EXPECT_EQ(mesa.FormName(), screen.form);
    act();
    // Behind it waits what must find the screen gone or still there.
    mesa.platform->Send(stage::KeyReleased{});
  };
  bool acted = false;
  mesa.platform->Director = [&] {
    if (!acted) return acted = true, first();
    closed = false;
    mesa.Press(13);
  };
  if (screen.opened_by == 0) {
    mesa.programa->FrmMostraRecords.Show(stage::kModal);
  } else {
    mesa.Press(screen.opened_by);
    mesa.Do();
  }
  mesa.platform->Director = nullptr;
  EXPECT_EQ(mesa.FormName(), "game");
  return closed;
}

TEST(Screens, CloseByTheirKeysAndNoOthers) {
  for (const Screen& screen : kScreens) {
    Mesa mesa;
    for (int code = 1; code < 256; ++code) {
      EXPECT_EQ(Closes(mesa, screen, [&] { mesa.Press(code); }), screen.closed_by.contains(code))
          << screen.form << ' ' << code;
      EXPECT_TRUE(mesa.Jogo().BolaPresa && !mesa.Jogo().paused);
    }
  }
}

TEST(Screens, CloseByAClickAnywhereOrNowhere) {
  for (const Screen& screen : kScreens) {
    Mesa mesa({{"levels/1.sav", kQuietLevel}}, {.screen = {16000, 9000}});
    std::vector<std::pair<Double, Double>> places;
    for (int x = 10; x < 16000; x += 999) {
      for (int y = 10; y < 9000; y += 499) places.emplace_back(x, y);
    }
    // Every control of the form has a place of its own.
    Closes(mesa, screen, [&] {
      for (const stage::Control* control : All<stage::Control>(*mesa.Palco().ActiveForm())) {
        const stage::TwipRect area = control->Area();
        places.emplace_back(area.left + 5, area.top + 5);
      }
    });
    for (const auto& [x, y] : places) {
      const bool closed = Closes(mesa, screen, [&, x = x, y = y] {
        mesa.platform->MoveTo(x, y);
        mesa.Click();
      });
      EXPECT_EQ(closed, screen.by_click) << screen.form << ' ' << x << ' ' << y;
    }
    EXPECT_TRUE(mesa.Jogo().BolaPresa);
  }
}

TEST(Screens, LeaveThePaddleAndTheBallWhereTheyWere) {
  constexpr Single kCentred = 5509.5F;  // where a lost ball has put the paddle, with the pointer elsewhere
  for (const int opened_by : {112, 80, 19}) {
    for (const bool flying : {false, true}) {
      for (const bool moves_away : {false, true}) {
        SCOPED_TRACE(testing::Message()
                     << opened_by << (flying ? " flying" : "") << (moves_away ? " moves" : ""));
        Mesa mesa;
        game& jogo = mesa.Jogo();
        mesa.platform->MoveTo(3000, 6500);
        mesa.Beats(2);
        jogo.User.Left = kCentred;
        mesa.Beats(1);
        if (flying) mesa.Click();
        mesa.Beats(2);
        const auto places = [&] {
          return std::array<Double, 3>{jogo.User.Left, jogo.ball.Left, jogo.ball.Top};
        };
        const auto before = places();
        const auto away = [&] {
          EXPECT_TRUE(jogo.paused);
          EXPECT_EQ(mesa.Palco().CursorCounter(), -1);
          if (moves_away) mesa.platform->MoveTo(9000, 6000);
        };
        const Move wait = [&] { mesa.platform->PassTo(stage::kBeat); };
        const auto back = [&] {
          EXPECT_EQ(places(), before);
          mesa.Press(27);
          if (moves_away) mesa.platform->MoveTo(9500, 6000);
        };
        mesa.Press(opened_by);
        Play(mesa, {away, wait, wait, wait, back}, [&] { mesa.Do(); });
        mesa.Do();
        EXPECT_EQ(places()[0], before[0]);
        EXPECT_EQ(mesa.platform->PointerPlace().x, 200);
        EXPECT_FALSE(jogo.paused);
        EXPECT_EQ(jogo.BolaPresa, !flying);
        mesa.Beats(1);
        EXPECT_EQ(places() != before, flying);
        // The next move of the hand counts again.
        mesa.platform->MoveTo(3000, 6500);
        mesa.Do();
        EXPECT_NEAR(jogo.User.Left, 3000 / 0.99375, 0.01);
      }
    }
  }
}

TEST(Pointer, GoesToItsSideOfTheCounter) {
  struct Case {
    int from;
    int hidden;
    int shown;
  };
  Mesa mesa;
  stage::Stage& palco = mesa.Palco();
  const auto count_to = [&](int count) {
    while (palco.CursorCounter() < count) palco.ShowCursor(true);
    while (palco.CursorCounter() > count) palco.ShowCursor(false);
  };
  for (const Case& test : {Case{0, -1, 1}, Case{3, -1, 4}, Case{-1, -2, 0}, Case{-4, -5, 0}}) {
    count_to(test.from);
    EscondeCursor(palco);
    EXPECT_EQ(palco.CursorCounter(), test.hidden) << test.from;
    count_to(test.from);
    MostraCursor(palco);
    EXPECT_EQ(palco.CursorCounter(), test.shown) << test.from;
  }
}

}  // namespace
