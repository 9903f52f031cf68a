// Where everything lies on the screens, what it is, and what the display shows of it.
#include <gtest/gtest.h>

#include "records/FrmEntrarecord.h"
#include "records/FrmMostraRecords.h"
#include "screens/FrmHelp.h"
#include "tests/player.h"
#include "tests/sight.h"

namespace {

using namespace tests;
using stage::Pixel;
using stage::TwipRect;

constexpr Pixel kGrey = 0xE0E0E0;
constexpr Pixel kYellow = 0xFFFF00;
constexpr Words kLegend{"LiberationSans-Regular", 9.75, 0x80FFFF};

/// A picture or a line of text, in twips of what it lies in.
struct Part {
  TwipRect place;
  std::string what;
  std::optional<Words> words{};
};

/// A box in the middle of a black screen with something in it, and perhaps a part outside.
struct Screen {
  std::function<void(Programa&)> open;
  stage::Design box;
  std::vector<Part> inside;
  std::vector<Part> outside;
};

constexpr TwipRect kName{240, 2040, 4350, 555};

Screen Help() {
  return {[](Programa& p) { p.FrmHelp.Show(stage::kModal); },
          {0, 0, 6495, 6615},
          {{{120, 0, 3690, 585}, "abertura"},
           {{240, 840, 615, 585}, "ImagePower1"},
           {{960, 1080, 1575, 240}, "Atravessa blocos", kLegend},
           {{240, 1440, 615, 585}, "ImagePower2"},
           {{960, 1680, 3060, 240}, "Atrevessa inclusive blocos rígidos", kLegend},
           {{240, 2280, 615, 585}, "ImagePower4"},
           {{960, 2400, 2595, 240}, "Aumenta o tamanho da barra", kLegend},
           {{240, 2880, 615, 585}, "ImagePower5"},
           {{960, 3120, 2535, 240}, "Diminue o tamanho da barra", kLegend},
           {{240, 3720, 615, 585}, "ImagePower6"},
           {{960, 3960, 5295, 240}, "A esfera torna-se magnetica com relação a barra receptora", kLegend},
           {{240, 4440, 615, 585}, "ImagePower7"},
           {{960, 4680, 5475, 240}, "Passa para a próxima tela, adquirindo os pontos da tela atual", kLegend},
           {{240, 5280, 615, 585}, "ImagePower3"},
           {{960, 5520, 1425, 240}, "Perde uma vida", kLegend},
           {{240, 5880, 615, 585}, "ImagePower8"},
           {{960, 6120, 1470, 240}, "Ganha uma vida", kLegend}},
          {}};
}

Screen NameEntry(const stage::ScreenSize& screen) {
  return {
      [](Programa& p) { p.FrmEntrarecord.Show(stage::kModal); },
      {0, 0, 5055, 2655},
      {{{120, 0, 3690, 930}, "titulo"},
       {{240, 1320, 4575, 375}, "Digite o seu nome e tecle enter:", Words{"LiberationSans-Bold", 12, kGrey}},
       {kName, "", Words{"LiberationSans-Bold", 18, 0xFFFFFF}}},
      {{{screen.Width - 3690 - 585, screen.Height - 2 * 585, 3690, 585}, "abertura"}}};
}

Screen Table(int yellow) {
  const Double tops[] = {1080, 1680, 2280, 2880, 3360, 3840, 4320, 4800, 5280, 5760};
  Screen table{[yellow](Programa& p) {
                 for (Integer r = 1; r <= 10; r = r + 1) {
                   p.Module1.RecNome(r) = "N" + std::to_string(r);
                   p.Module1.RecPontos(r) = 20 - int(r);
                 }
                 p.Module1.RecNovo = yellow;
                 p.FrmMostraRecords.Show(stage::kModal);
               },
               {0, 0, 6255, 6255},
               {{{0, 0, 3690, 930}, "titulo"}},
               {}};
  for (int r = 1; r <= 10; ++r) {
    const Double top = tops[r - 1];
    const Double height = r <= 3 ? 495 : 345;
    const Words words{"DejaVuSans-Bold", 21.0 - r, r == yellow ? kYellow : kGrey};
    table.inside.push_back({{120, top, 4215, height}, "N" + std::to_string(r), words});
    table.inside.push_back({{4560, top, 1335, height},
                            std::to_string(20 - r),
                            Words{words.font, words.points, words.colour, stage::Align::kRight}});
  }
  return table;
}

/// The displays that everything is looked at on: of the design, a wide one, one with black above and below.
const stage::PixelSize kDisplays[] = {{800, 600}, {1920, 1080}, {1000, 1000}};

stage::ScriptedSetup On(stage::PixelSize display, int refresh_rate = 0) {
  return {.screen = stage::ScreenFor(display), .refresh_rate = refresh_rate, .display = display};
}

TEST(Screens, ShowWhatTheyAreMadeOf) {
  for (const stage::PixelSize display : kDisplays) {
    for (int number = 0; number < 3; ++number) {
      SCOPED_TRACE(testing::Message() << display.width << " screen " << number);
      Mesa mesa({{"levels/1.sav", kQuietLevel}}, On(display));
      mesa.platform->Look(true);
      const auto [width, height] = mesa.Palco().Screen;
      const Screen screen = number == 0 ? Help() : number == 1 ? NameEntry(mesa.Palco().Screen) : Table(4);
      const TwipRect box{(width - screen.box.width) / 2, (height - screen.box.height) / 2, screen.box.width,
                         screen.box.height};
      std::vector<TwipRect> places{box};
      Sight sight(mesa.Palco());
      const auto add = [&](Part part) {
        places.push_back(part.place);
        if (!part.words) return sight.Show(part.what, part.place);
        sight.Write(part.what, *part.words, part.place);
      };
      for (Part part : screen.inside) {
        part.place.left += box.left;
        part.place.top += box.top;
        add(part);
      }
      for (const Part& part : screen.outside) add(part);
      if (number == 1) {
        const TwipRect field{box.left + kName.left, box.top + kName.top, kName.width, kName.height};
        constexpr Double kLine = 18 * 20 * 1.2;  // its height in twips
        sight.Frame(field, 0x606060);
        sight.Fill({field.left + 60, field.top + (field.height - kLine) / 2, 15, kLine}, 0xFFFFFF);
      }
      const auto look = [&] {
        sight.ExpectShown();
        const auto controls = All<stage::Control>(*mesa.Palco().ActiveForm());
        EXPECT_EQ(controls.size(), places.size());
        for (const TwipRect& place : places) {
          EXPECT_TRUE(std::ranges::any_of(controls,
                                          [&](const stage::Control* control) {
                                            const TwipRect area = control->Area();
                                            return std::abs(area.left - place.left) < 0.01 &&
                                                   std::abs(area.top - place.top) < 0.01 &&
                                                   std::abs(area.width - place.width) < 0.01 &&
                                                   std::abs(area.height - place.height) < 0.01;
                                          }))
              << "nothing at " << place.left << ',' << place.top << ' ' << place.width << 'x' << place.height;
        }
        mesa.Press(27);
      };
      Play(mesa, {look}, [&] { screen.open(*mesa.programa); });
    }
  }
}

/// The field as it must look with the ball at this place.
Sight FieldOf(Mesa& mesa, stage::TwipPoint ball) {
  game& jogo = mesa.Jogo();
  Sight sight(mesa.Palco());
  sight.Show("ImagePedra5", jogo.Box(1).Area());
  sight.Show("Imageball0", {ball.x, ball.y, 225, 225});
  const TwipRect icone = jogo.Imageball(0).Area();
  sight.Show("Imageball0", {icone.left, icone.top, 225, 225});
  sight.Show("statusbar", jogo.statusbar.Area());
  sight.Write("0", {"LiberationSans-Bold", 18, 0xFFC0FF, stage::Align::kRight}, jogo.LabelPontos.Area());
  sight.Show("barra", jogo.life(1).Area());
  sight.Write("Tela: A-1", {"LiberationSans-Bold", 18, 0xFFC080}, jogo.Label2.Area());
  for (Integer i = 2; i <= 5; i = i + 1) {
    if (jogo.life(i).Visible) sight.Show("barra", jogo.life(i).Area());
  }
  sight.Within(jogo.User.Area());
  sight.Fill(jogo.User.Area(), 0);
  sight.Show("barra", jogo.Image1.Area());
  sight.Within({0, 0, mesa.Palco().Screen.Width, mesa.Palco().Screen.Height});
  mesa.Palco().PaintNow();
  return sight;
}

TEST(Field, ShowsAllThatIsInPlayAndTheHeldBallWhereThePaddleIs) {
  for (const stage::PixelSize display : kDisplays) {
    SCOPED_TRACE(display.width);
    Mesa mesa({{"levels/1.sav", kQuietLevel}}, On(display, 60));
    mesa.platform->Look(true);
    game& jogo = mesa.Jogo();
    jogo.ExibeVidas(6);        // all icons; the last ones lie over the level
    mesa.Beats(24);            // until nothing glows any more
    mesa.PointAt(2000, 4000);  // the ball itself follows with the next beat
    FieldOf(mesa, {(2000 + jogo.User.Width / 2 - jogo.ball.Width / 2) * 0.99375,
                   (jogo.User.Top - jogo.ball.Height) * 0.9})
        .ExpectShown();
    jogo.BolaPresa = false;
    jogo.VelX = jogo.VelY = 0;
    jogo.ball.Left = 5000;
    jogo.ball.Top = 4000;
    mesa.Beats(3);
    FieldOf(mesa, {5000 * 0.99375, 4000 * 0.9}).ExpectShown();
  }
}

TEST(Pause, ShowsItsOwnPixelsOverTheField) {
  for (const stage::PixelSize display : kDisplays) {
    SCOPED_TRACE(display.width);
    // A block lies behind the sign.
    Mesa mesa({{"levels/1.sav", "pisca,0,500,10,0\r\n4300,4500,1200,3000,5\r\n"}}, On(display));
    mesa.platform->Look(true);
    mesa.Beats(24);  // until nothing glows any more
    const TwipRect ball = mesa.Jogo().ball.Area();
    const Sight field = FieldOf(mesa, {ball.left, ball.top});
    const auto [width, height] = mesa.Palco().Screen;
    Sight held = field;
    held.Show("pausa", {(width - 1860) / 2.0, (height - 585) / 2.0, 112 * 15, 35 * 15}, false);
    const auto look = [&] {
      held.ExpectShown();
      mesa.Palco().Repaint();
      held.ExpectShown();
      mesa.Press(80);
    };
    for (int time = 0; time < 2; ++time) {
      mesa.Press(80);
      Play(mesa, {look}, [&] { mesa.Do(); });
      mesa.Palco().PaintNow();
      field.ExpectShown();
    }
  }
}

}  // namespace
