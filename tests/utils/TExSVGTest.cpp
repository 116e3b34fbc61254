#include <gtest/gtest.h>

#include <numbers>

#include "kaldrix/utils/TExSVG.hpp"

namespace Zor {
namespace {

constexpr TAlphaColor Orange = 0xFFFF8000;

TEST(TExSVG, GetValTestsTheValueNotThePrint) {
  EXPECT_EQ(TExSVG::GetVal(12, 1, svCurrentUnit), "12");
  EXPECT_EQ(TExSVG::GetVal(12.5, 1, svCurrentUnit), "12.50");
  EXPECT_EQ(TExSVG::GetVal(12.004, 1, svCurrentUnit), "12.00");
  EXPECT_EQ(TExSVG::GetVal(-0.001, 1, svCurrentUnit), "0.00");
  EXPECT_EQ(TExSVG::GetVal(3, 2.5, svCurUnitNoMed), "3");
  EXPECT_EQ(TExSVG::GetVal(3, 2.5, svFactor), "7.50");
  EXPECT_EQ(TExSVG::GetVal(3, 2.5, svFactorPx), "7.50");
  EXPECT_EQ(TExSVG::GetVal(1.5, unMM), "1.50");
  EXPECT_EQ(TExSVG::GetVal(1.5, unCM), "1.500");
  EXPECT_EQ(TExSVG::GetVal(2, unYd), "2");
}

TEST(TExSVG, GetValUnitByModeAndUnit) {
  struct TCase {
    TZORExportSVG Mode;
    double Value;
    std::string MM, Inch, CM, Others;
  };
  const TCase cases[] = {
      {svCurrentUnit, 1.25, "1.3mm", "1.25in", "1.25cm", ""}, {svCurrentUnit, 1, "1mm", "1in", "1cm", ""},
      {svCurUnitNoMed, 1.25, "1.3", "1.25", "1.25", ""},      {svCurUnitNoMed, 1, "1", "1", "1", ""},
      {svFactor, 0.55, "5.5mm", "5.50in", "5.50cm", ""},      {svFactor, 0.5, "5mm", "5in", "5cm", ""},
      {svFactorPx, 0.55, "5.50", "5.50", "5.50", "5.50"},     {svFactorPx, 0.5, "5", "5", "5", "5"},
  };
  for (const TCase& c : cases) {
    EXPECT_EQ(TExSVG::GetValUnit(c.Value, 10, unMM, c.Mode), c.MM);
    EXPECT_EQ(TExSVG::GetValUnit(c.Value, 10, unINCH, c.Mode), c.Inch);
    EXPECT_EQ(TExSVG::GetValUnit(c.Value, 10, unCM, c.Mode), c.CM);
    for (const TZORUnits other : {unDM, unM, unFt, unYd}) {
      EXPECT_EQ(TExSVG::GetValUnit(c.Value, 10, other, c.Mode), c.Others);
    }
  }
}

TEST(TExSVG, ColoursAndOpacity) {
  EXPECT_EQ(TExSVG::GetLineColor(Orange), " stroke=\"#FF8000\"");
  EXPECT_EQ(TExSVG::GetLineColor(0x800A0B0C), " stroke=\"#0A0B0C\" stroke-opacity=\"0.5\"");
  EXPECT_EQ(TExSVG::GetFillColor(0x00FFFFFF, true), " fill=\"#FFFFFF\" fill-opacity=\"0.0\"");
  EXPECT_EQ(TExSVG::GetFillColor(Orange, false), " fill=\"none\"");
}

TEST(TExSVG, DashesStylesCapsUnitsAngles) {
  EXPECT_EQ(TExSVG::GetLineStyle(iiSolid), "");
  EXPECT_EQ(TExSVG::GetLineStyle(ii12), " stroke-dasharray=\"2 1\" ");
  EXPECT_EQ(TExSVG::GetLineStyle(ii411), " stroke-dasharray=\"4 1 1 1\" ");
  EXPECT_EQ(TExSVG::GetCap(true), " stroke-linecap=\"round\" ");
  EXPECT_EQ(TExSVG::GetTextStyle(false, false, false), "");
  EXPECT_EQ(TExSVG::GetTextStyle(true, false, true), "\" font-weight=\"bold\" text-decoration=\"underline");
  EXPECT_EQ(TExSVG::GetTextStyle(false, true, false), "\" font-style=\"italic");
  for (int unit = unMM; unit <= unYd; ++unit) {
    EXPECT_EQ(TExSVG::GetUnit(TExSVG::GetUnit(static_cast<TZORUnits>(unit))), unit);
  }
  EXPECT_EQ(TExSVG::GetUnit("FT"), unFt);
  EXPECT_EQ(TExSVG::GetUnit("parsec"), unMM);
  EXPECT_EQ(TExSVG::GetDegAngle(-std::numbers::pi / 8), "-22.5");
  EXPECT_EQ(TExSVG::GetDegAngle(std::numbers::pi), "180.0");
}

TEST(TExSVG, ScapeTextLeavesOnlyWhatXmlAllows) {
  const std::pair<std::string, std::string> cases[] = {
      {"it's plain \xC3\xB1 \xF0\x9F\x98\x80\t\r\n", "it's plain \xC3\xB1 \xF0\x9F\x98\x80\t\r\n"},
      {"<a b=\"c\">&", "&lt;a b=&quot;c&quot;&gt;&amp;"},
      {"&&&", "&amp;&amp;&amp;"},
      {std::string("a\0b\x1F\x7F", 5), "ab\x7F"},
      {"\xEF\xBF\xBE|\xEF\xBF\xBF|\xFF", "||\xEF\xBF\xBD"},
  };
  for (const auto& [text, escaped] : cases) EXPECT_EQ(TExSVG::ScapeText(text), escaped);
}

std::string Term(TZORTermType aType, double aSize, bool aIsArc = false) {
  return TExSVG::DrawTerm(aType, svCurrentUnit, 10, 20, aIsArc ? std::numbers::pi / 2 : 0, 20, 0.25, 5, aSize,
                          Orange, 0xFF0000FF, 8, aIsArc);
}

TEST(TExSVG, Terminators) {
  const std::string end = "  stroke=\"#FF8000\" stroke-width=\"0.3\"/>";
  const std::string hollow = "\" fill=\"none\"" + end;
  const std::string full = "\"  fill=\"#0000FF\"" + end;
  const std::string leftDia = "<line x1=\"9\" y1=\"19\" x2=\"11\" y2=\"21\"" + end;
  const std::string rightDia = "<line x1=\"11\" y1=\"19\" x2=\"9\" y2=\"21\"" + end;
  const std::string rhombus = "<polygon points=\"10,19 11,20 10,21 9,20";
  // Wings of length 2, 22.5 degrees off the line: 2 cos = 1.848, 2 sin = 0.765.
  const std::string arrow = "<line x1=\"10\" y1=\"20\" x2=\"8.15\" y2=\"20.77\"" + end +
                            "\r\n<line x1=\"10\" y1=\"20\" x2=\"8.15\" y2=\"19.23\"" + end;
  EXPECT_EQ(Term(ttNone, 2), "");
  EXPECT_EQ(Term(ttCircle, 2), "<circle cx=\"10\" cy=\"20\" r=\"1" + hollow);
  EXPECT_EQ(Term(ttFillCircle, 2), "<circle cx=\"10\" cy=\"20\" r=\"1" + full);
  EXPECT_EQ(Term(ttSquare, 2), "<rect x=\"9\" y=\"19\" width=\"2\" height=\"2\"  fill=\"none\"" + end);
  EXPECT_EQ(Term(ttFillSquare, 2), "<rect x=\"9\" y=\"19\" width=\"2\" height=\"2" + full);
  EXPECT_EQ(Term(ttRhombus, 2), rhombus + hollow);
  EXPECT_EQ(Term(ttFillRhombus, 2), rhombus + full);
  EXPECT_EQ(Term(ttLeftDia, 2), leftDia);
  EXPECT_EQ(Term(ttRightDia, 2), rightDia);
  EXPECT_EQ(Term(ttCross, 2), leftDia + "\r\n" + rightDia);
  EXPECT_EQ(Term(ttArrow, 2.5), arrow) << "2.5 is rounded to even";
  EXPECT_EQ(Term(ttFillArrow, 2), "<polygon points=\"10,20 8.15,20.77 8.15,19.23" + full);
  EXPECT_EQ(Term(ttFillArrow, 2, true), "<polygon points=\"10,20 9.23,18.15 10.77,18.15" + full);
}

}  // namespace
}  // namespace Zor
