#include "korrin/drawing/revision_marks.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/svg_reader.h"

namespace korrin {
namespace {

using test::countOf;
using test::fixedExample;
using test::SvgElement;
using test::textsOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

constexpr const char* addedColour = "#1a7f37";
constexpr const char* changedColour = "#0550ae";
constexpr const char* movedColour = "#953800";
constexpr const char* goneColour = "#a40e26";

/// The elements of the marked drawing that have this outline.
std::vector<SvgElement> outlined(const std::string& svg, const std::string& colour) {
  std::vector<SvgElement> found;
  for (const SvgElement& element : test::readSvg(svg).elements)
    if (const auto stroke = element.attributes.find("stroke");
        stroke != element.attributes.end() && stroke->second == colour)
      found.push_back(element);
  return found;
}

bool isDashed(const SvgElement& element) { return element.attributes.contains("stroke-dasharray"); }

/// The only element of this name.
SvgElement only(const std::vector<SvgElement>& elements, const std::string& name) {
  std::vector<SvgElement> found;
  for (const SvgElement& element : elements)
    if (element.name == name) found.push_back(element);
  EXPECT_EQ(found.size(), 1u) << name;
  return found.empty() ? SvgElement{} : found.front();
}

TEST(RevisionMarks, ThatAreNoneLeaveThePictureAsItIs) {
  const KorrinProject project = fixedExample();
  EXPECT_EQ(drawMarkedPlot(project, {}), drawPlot(project));
  EXPECT_EQ(drawMarkedPages(project, {}), drawPages(project));
  EXPECT_EQ(drawMarkedStackedPages(project, {}), drawStackedPages(project));
}

TEST(RevisionMarks, OutlineWhatIsNewAndSaySo) {
  const KorrinProject project = fixedExample();
  const std::string svg = drawMarkedPlot(project, {.added = {project.items[0].id}});
  EXPECT_FALSE(isDashed(only(outlined(svg, addedColour), "polygon")));
  EXPECT_EQ(std::ranges::count(textsOf(svg), "new"), 1);
}

TEST(RevisionMarks, OutlineWhatChangedWhereItStands) {
  const KorrinProject project = fixedExample();
  const std::string svg =
      drawMarkedPlot(project, {.changed = {project.items[0].id, project.items[1].id}});
  EXPECT_EQ(outlined(svg, changedColour).size(), 2u);
  EXPECT_EQ(std::ranges::count(textsOf(svg), "changed"), 2);
}

TEST(RevisionMarks, ShowTheWayOfWhatMoved) {
  KorrinProject project = fixedExample();
  const PlotItem former = project.items[0];
  project.items.edit(0).position.x += 1200;
  const std::string svg = drawMarkedPlot(project, {.moved = {former}});
  const std::vector<SvgElement> marks = outlined(svg, movedColour);
  ASSERT_EQ(marks.size(), 3u);  // the former place, the way, the present place
  EXPECT_TRUE(isDashed(marks[0]));
  EXPECT_FALSE(isDashed(marks[2]));
  const SvgElement way = only(marks, "line");
  const auto at = [&way](const char* name) { return std::stod(way.attributes.at(name)); };
  EXPECT_EQ(at("y1"), at("y2"));
  // 1.2 m at the drawing's scale.
  const std::string caption = svg.substr(svg.find("scale 1:") + 8);
  EXPECT_NEAR(at("x2") - at("x1"), 1200 / std::stod(caption), 0.002);
  EXPECT_EQ(std::ranges::count(textsOf(svg), "moved"), 1);
}

TEST(RevisionMarks, CrossOutWhatIsGoneAndNameIt) {
  KorrinProject project = fixedExample();
  PlotItem gone = project.items[0];
  project.items.erase(0);
  gone.label = "<TIMPANI>";
  const std::string svg = drawMarkedPlot(project, {.gone = {gone}});
  const std::vector<SvgElement> marks = outlined(svg, goneColour);
  EXPECT_TRUE(isDashed(only(marks, "polygon")));
  EXPECT_EQ(std::ranges::count(marks, "line", &SvgElement::name), 2);
  EXPECT_THAT(textsOf(svg), Contains("gone: <TIMPANI>"));
}

TEST(RevisionMarks, PassOverWhatIsNotDrawn) {
  KorrinProject project = fixedExample();
  PlotItem elsewhere = project.items[0];
  elsewhere.id = UUID({77});
  project.items.edit(1).layerID = UUID({99});
  const RevisionMarks marks = {.added = {UUID({77}), project.items[1].id},
                               .changed = {UUID({77})},
                               .moved = {elsewhere, project.items[1]}};
  EXPECT_EQ(drawMarkedPlot(project, marks), drawPlot(project));
}

TEST(RevisionMarks, StandOnTheFirstSheetAndAreToldInAList) {
  const KorrinProject project = fixedExample();
  const RevisionMarks marks = {.added = {project.items[0].id},
                               .sentences = {"DRUMS is new", "Input 3 is <b>\"louder\"</b>"}};
  const std::vector<std::string> pages = drawMarkedPages(project, marks);
  EXPECT_THAT(pages.front(), HasSubstr(addedColour));
  std::vector<std::string> texts;
  for (std::size_t page = 1; page < pages.size(); ++page) {
    EXPECT_THAT(pages[page], Not(HasSubstr(addedColour)));
    for (std::string& text : textsOf(pages[page])) texts.push_back(std::move(text));
  }
  for (const char* text :
       {"Changes", "What changed", "DRUMS is new", "Input 3 is <b>\"louder\"</b>"})
    EXPECT_THAT(texts, Contains(text));
  EXPECT_THAT(textsOf(drawStackedPages(project)), Not(Contains("Changes")));
}

TEST(RevisionMarks, TakeItemsWhoseNumbersAreNone) {
  KorrinProject project = fixedExample();
  PlotItem strange = project.items[0];
  strange.position = {.x = 1e300, .y = -1e300};
  strange.size = {.width = 0.0 / 1e-320, .height = -5};
  strange.rotationDegrees = 1e308;
  const RevisionMarks marks = {.moved = {strange}, .gone = {strange, strange}};
  for (const std::string& page : drawMarkedPages(project, marks))
    EXPECT_EQ(test::readSvg(page).fault, "");
}

}  // namespace
}  // namespace korrin
