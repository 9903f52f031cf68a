// Drawings for a shape: what is kept, what is repeated, and what becomes of texts that cannot be read.
#include "stage/painting/shaped_drawing.h"

#include <gtest/gtest.h>

namespace {

using namespace stage;

std::string Made(const std::string& body, PixelSize size, const std::string& root = R"(data-shape="any")") {
  const std::string svg =
      R"(<svg width="40" height="20" viewBox="0 0 40 20" )" + root + ">" + body + "</svg>";
  return DrawingFor({"name", svg, {40, 20}}, size);
}

/// The root's own text is left out.
std::string Body(const std::string& drawing) {
  const std::size_t end = drawing.find('>') + 1;
  return drawing.substr(end, drawing.rfind("</svg>") - end);
}

struct Case {
  const char* what;
  std::string body;
  PixelSize size;
  std::string expected;
};

TEST(ShapedDrawing, KeepsPlacesAsFarFromTheNearerEdgeAsTheyAreDrawn) {
  const Case cases[] = {
      {"wide",
       R"(<path d="M0 0H40L37.5 2.5H2.5V17.5L0,20Z"/>)",
       {300, 20},
       R"(<path d="M 0 0H 300L 297 3H 3V 17L 0 20Z"/>)"},
      {"tall",
       R"(<path d="M2 18C-1 30 38 2 40 20"/>)",
       {20, 300},
       R"(<path d="M 2 298C -1 310 18 2 20 300"/>)"},
      {"twice as large", R"(<path d="M2.5.5H39"/>)", {80, 40}, R"(<path d="M 5 1H 78"/>)"},
      {"the middle goes with the left", R"(<path d="M20 10H21"/>)", {300, 20}, R"(<path d="M 20 10H 281"/>)"},
      {"nothing crosses the middle", R"(<path d="M18 4H22"/>)", {20, 20}, R"(<path d="M 10 4H 10"/>)"},
      {"nor where it is larger", R"(<path d="M18 4H22"/>)", {30, 40}, R"(<path d="M 15 6H 15"/>)"},
      {"more than one for a letter",
       R"(<path d="M0 0H5 39V3 6"/>)",
       {400, 20},
       R"(<path d="M 0 0H 5 399V 3 6"/>)"},
      {"other attributes",
       R"(<stop x1="1" x2="39" y1="2" y2="19" stroke-width="1.5" fill="" id="a"/>)",
       {100, 40},
       R"(<stop x1="2" x2="98" y1="4" y2="38" stroke-width="3.00000" fill="" id="a"/>)"}};
  for (const Case& each : cases) EXPECT_EQ(Body(Made(each.body, each.size)), each.expected) << each.what;
}

TEST(ShapedDrawing, KeepsTheMarginsOfItsBodyApart) {
  const std::string root = R"(data-shape="any" data-body="1.3 0 40 17.4")";
  // The margins are 2 and 4 pixels, and what is 5 units from an edge of the body is 8 pixels from it at each.
  EXPECT_EQ(Body(Made(R"(<path d="M1.3 0L6.3 5L35 12.4L40 17.4"/>)", {64, 32}, root)),
            R"(<path d="M 2 0L 10 8L 56 20L 64 28"/>)");
  EXPECT_EQ(Body(Made(R"(<path d="M15 0"/>)", {32, 32}, root)), R"(<path d="M 17 0"/>)")
      << "the middle of the body";
}

TEST(ShapedDrawing, RepeatsPatternsWholePixelsApartFromTheMiddleOn) {
  const auto copies = [&](PixelSize size, const std::string& every = "10 20") {
    const std::string tile = R"(<g id="t" data-every=")" + every + R"("><path d="M0 0V20"/></g>)";
    std::string places;
    const std::string drawn = Body(Made(tile, size));
    for (std::size_t at = drawn.find("translate("); at != std::string::npos;
         at = drawn.find("translate(", at + 1)) {
      places += drawn.substr(at + 10, drawn.find(')', at) - at - 10) + ';';
      EXPECT_NE(drawn.find(R"(<path d="M0 0V20"/></g>)", at), std::string::npos);
    }
    return places;
  };
  EXPECT_EQ(copies({40, 20}), "0.00000 0.00000;10.00000 0.00000;20.00000 0.00000;30.00000 0.00000;");
  EXPECT_NE(
      Made(R"(<g data-every="10 20"></g>)", {40, 20})
          .find(R"|(<g data-every="10 20" transform="translate(0.00000 0.00000) scale(1.00000)"></g>)|"),
      std::string::npos);
  EXPECT_EQ(copies({80, 40}), "0.00000 0.00000;20.00000 0.00000;40.00000 0.00000;60.00000 0.00000;");
  EXPECT_EQ(copies({30, 20}), "-5.00000 0.00000;5.00000 0.00000;15.00000 0.00000;25.00000 0.00000;");
  EXPECT_EQ(copies({20, 40}),
            "0.00000 -10.00000;10.00000 -10.00000;0.00000 10.00000;10.00000 10.00000;"
            "0.00000 30.00000;10.00000 30.00000;");
  EXPECT_EQ(copies({4, 20}, "1 20"), "1.00000 0.00000;2.00000 0.00000;") << "no finer than a pixel";
}

TEST(ShapedDrawing, StretchesWhatItCannotRead) {
  const std::string whole = R"(<path d="M1 1H39"/>)";
  EXPECT_EQ(Body(Made(whole, {400, 20}, "")), whole);
  for (const std::string body : {R"(<path d="M1 1h38"/>)", R"(<path d="M1 1A5 5 0 0 1 9 9"/>)",
                                 R"(<path d="M1e9 1"/>)", R"(<g data-every="9 9"><path d="M0 0"/>)"}) {
    const std::string made = Made(body, {400, 20});
    EXPECT_EQ(Body(made), body);
    EXPECT_TRUE(
        made.starts_with(R"(<svg xmlns="http://www.w3.org/2000/svg" preserveAspectRatio="none" width="400" )"
                         R"(height="20" viewBox="0 0 40 20">)"))
        << made;
    const std::string without_view = "<svg>" + body + "</svg>";
    EXPECT_EQ(DrawingFor({"name", without_view, {40, 20}}, {400, 20}), made);
  }
}

TEST(ShapedDrawing, IsBoundedWhateverItsTextSays) {
  const std::string many(400, '9');
  const std::string fine = R"(<g data-every="0.001 -5"><path d="M0 0"/></g>)";
  for (const PixelSize size : {PixelSize{1, 1}, {300, 20}, {2048, 1}, {2048, 2048}}) {
    EXPECT_LT(Made(fine, size).size(), 100'000U);
    for (const std::string& body :
         {std::string(R"(<path d="M)").append(many).append(" -").append(many).append(R"(H1"/>)"),
          R"(<g data-every=")" + many + R"( 1"></g>)", R"(<path stroke-width=")" + many + R"("/>)",
          std::string(R"(<path d="M- .. -.H"/>)"), std::string("<path d=\"M1"), std::string("<"),
          std::string(R"(<g data-every=""></g>)")}) {
      EXPECT_LT(Made(body, size, R"(data-shape="any" data-body="9 9 1 1")").size(), 100'000U) << body;
    }
  }
  const std::string whole = R"(<path d="M1 1H39"/>)";
  for (const PixelSize natural : {PixelSize{0, 7}, {7, 0}}) {
    const std::string svg = R"(<svg data-shape="any">)" + whole + "</svg>";
    EXPECT_EQ(Body(DrawingFor({"no size", svg, natural}, {10, 10})), whole);
  }
  EXPECT_EQ(DrawingFor({"no drawing", "words", {0, 0}}, {10, 10}), "words");
}

}  // namespace
