#include "korrin/validation/document_validation.h"

#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

using Error = DocumentValidationError;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// What validation says of the sample plot after a change; nothing when it passes.
std::optional<Error::Code> verdictAfter(const std::function<void(KorrinProject&)>& change) {
  KorrinProject project = sampleProject();
  change(project);
  try {
    DocumentValidation::validate(project);
  } catch (const Error& error) {
    return error.code();
  }
  return std::nullopt;
}

TEST(DocumentValidationError, SaysEachCaseInOneSentence) {
  EXPECT_STREQ(Error(Error::duplicateIdentifiers).what(),
               "The project contains duplicate identifiers.");
  EXPECT_STREQ(Error(Error::invalidGeometry).what(),
               "The project contains invalid or unsupported dimensions.");
  EXPECT_STREQ(Error(Error::invalidImage).what(), "An embedded image is not valid.");
  EXPECT_STREQ(Error(Error::imageTooLarge).what(),
               "The embedded images exceed the safe pixel limit.");
}

TEST(DocumentValidationError, IsComparedAndHashedByItsCase) {
  const Error error = Error::invalidImage;
  EXPECT_TRUE(error == Error::invalidImage);
  EXPECT_FALSE(error == Error::imageTooLarge);
  EXPECT_EQ(std::hash<Error>{}(error), std::hash<Error>{}(Error::invalidImage));
  EXPECT_NE(std::hash<Error>{}(error), std::hash<Error>{}(Error::imageTooLarge));
}

TEST(DocumentValidation, PassesTheSamplePlotAndAnEmptyDocument) {
  EXPECT_NO_THROW(DocumentValidation::validate(sampleProject()));
  EXPECT_NO_THROW(DocumentValidation::validate(KorrinProject::newDocument()));
}

TEST(DocumentValidation, RefusesARepeatedIdentifierInEachList) {
  const auto repeatFirst = [](auto KorrinProject::*list) {
    return verdictAfter([list](KorrinProject& project) {
      ASSERT_FALSE((project.*list).empty());
      (project.*list).push_back((project.*list)[0]);
    });
  };
  EXPECT_EQ(repeatFirst(&KorrinProject::layers), Error::duplicateIdentifiers);
  EXPECT_EQ(repeatFirst(&KorrinProject::items), Error::duplicateIdentifiers);
  EXPECT_EQ(repeatFirst(&KorrinProject::groups), Error::duplicateIdentifiers);
  EXPECT_EQ(repeatFirst(&KorrinProject::inputs), Error::duplicateIdentifiers);
  EXPECT_EQ(repeatFirst(&KorrinProject::monitorMixes), Error::duplicateIdentifiers);
  EXPECT_EQ(repeatFirst(&KorrinProject::equipmentRequirements), Error::duplicateIdentifiers);
  EXPECT_EQ(repeatFirst(&KorrinProject::notes), Error::duplicateIdentifiers);
}

TEST(DocumentValidation, LetsAnItemAndANoteShareAnIdentifier) {
  EXPECT_EQ(verdictAfter([](KorrinProject& project) {
              project.notes.edit(0).id = project.items[0].id;
              project.layers.edit(0).id = project.items[0].id;
            }),
            std::nullopt);
}

TEST(DocumentValidation, DoesNotLookAtTheAssetManifest) {
  EXPECT_EQ(verdictAfter([](KorrinProject& project) {
              ASSERT_FALSE(project.assetManifest.empty());
              project.assetManifest.push_back(project.assetManifest[0]);
            }),
            std::nullopt);
}

TEST(DocumentValidation, ChecksIdentifiersBeforeGeometry) {
  EXPECT_EQ(verdictAfter([](KorrinProject& project) {
              project.stage.size.width = -1;
              project.layers.push_back(project.layers[0]);
            }),
            Error::duplicateIdentifiers);
}

TEST(DocumentValidation, DoesNotLookAtReferencesRiserHeightsOrTexts) {
  EXPECT_EQ(verdictAfter([](KorrinProject& project) {
              PlotItem& item = project.items.edit(0);
              item.layerID = identifier(999);
              item.groupID = identifier(998);
              item.riserHeightMillimeters = notANumber;
              item.label = "";
            }),
            std::nullopt);
}

struct Limit {
  std::string name;
  std::function<void(KorrinProject&, double)> set;
  std::vector<double> accepted;
  std::vector<double> refused;
};

void PrintTo(const Limit& limit, std::ostream* out) { *out << limit.name; }

PlotItem& lastItem(KorrinProject& project) { return project.items.edit(project.items.size() - 1); }

class DocumentValidationLimits : public testing::TestWithParam<Limit> {};

TEST_P(DocumentValidationLimits, AreKeptExactly) {
  for (const double value : GetParam().accepted)
    EXPECT_EQ(verdictAfter([&](KorrinProject& project) { GetParam().set(project, value); }),
              std::nullopt)
        << value;
  for (const double value : GetParam().refused)
    EXPECT_EQ(verdictAfter([&](KorrinProject& project) { GetParam().set(project, value); }),
              Error::invalidGeometry)
        << value;
}

const std::vector<double> goodExtents = {5e-324, 1, 1'000'000};
const std::vector<double> badExtents = {0, -0.0, -1, 1'000'000.5, infinity, -infinity, notANumber};
const std::vector<double> goodPlaces = {0, -0.0, 1'000'000, -1'000'000};
const std::vector<double> badPlaces = {1'000'001, -1'000'001, 1'000'000.5,
                                       infinity,  -infinity,  notANumber};

INSTANTIATE_TEST_SUITE_P(
    Geometry, DocumentValidationLimits,
    testing::Values(Limit{"StageWidth", [](auto& p, double v) { p.stage.size.width = v; },
                          goodExtents, badExtents},
                    Limit{"StageHeight", [](auto& p, double v) { p.stage.size.height = v; },
                          goodExtents, badExtents},
                    Limit{"GridSpacing",
                          [](auto& p, double v) { p.stage.gridSpacingMillimeters = v; },
                          {0, -0.0, 500, 1'000'000},
                          {-1, 1'000'000.5, infinity, -infinity, notANumber}},
                    Limit{"ItemWidth", [](auto& p, double v) { lastItem(p).size.width = v; },
                          goodExtents, badExtents},
                    Limit{"ItemHeight", [](auto& p, double v) { lastItem(p).size.height = v; },
                          goodExtents, badExtents},
                    Limit{"ItemX", [](auto& p, double v) { lastItem(p).position.x = v; },
                          goodPlaces, badPlaces},
                    Limit{"ItemY", [](auto& p, double v) { lastItem(p).position.y = v; },
                          goodPlaces, badPlaces},
                    Limit{"Rotation",
                          [](auto& p, double v) { lastItem(p).rotationDegrees = v; },
                          {0, 720, -1e300},
                          {infinity, -infinity, notANumber}},
                    Limit{"LabelScale",
                          [](auto& p, double v) { lastItem(p).style.labelScale = v; },
                          {0, -0.0, 1, 100},
                          {100.01, -0.5, infinity, -infinity, notANumber}}),
    [](const auto& row) { return row.param.name; });

TEST(GridCoordinates, RunFromStartToEndInclusive) {
  EXPECT_THAT(DocumentValidation::gridCoordinates(0, 100, 25), ElementsAre(0, 25, 50, 75, 100));
  EXPECT_THAT(DocumentValidation::gridCoordinates(-10, 5, 10), ElementsAre(-10, 0));
  EXPECT_THAT(DocumentValidation::gridCoordinates(7, 7, 4), ElementsAre(7));
}

TEST(GridCoordinates, AreEmptyForWhatIsNoGrid) {
  EXPECT_THAT(DocumentValidation::gridCoordinates(0, 100, 3.9), IsEmpty());
  EXPECT_THAT(DocumentValidation::gridCoordinates(0, 100, -25), IsEmpty());
  EXPECT_THAT(DocumentValidation::gridCoordinates(10, 0, 25), IsEmpty());
  for (const double bad : {infinity, -infinity, notANumber}) {
    EXPECT_THAT(DocumentValidation::gridCoordinates(bad, 100, 25), IsEmpty());
    EXPECT_THAT(DocumentValidation::gridCoordinates(0, bad, 25), IsEmpty());
    EXPECT_THAT(DocumentValidation::gridCoordinates(0, 100, bad), IsEmpty());
  }
}

TEST(GridCoordinates, StopAtFourThousandAndNinetySix) {
  const auto lines = DocumentValidation::gridCoordinates(0, 1e9, 4);
  EXPECT_THAT(lines, SizeIs(4096));
  EXPECT_EQ(lines.back(), 16380);
}

TEST(GridCoordinates, StopWhereAnAdditionNoLongerAdvances) {
  EXPECT_THAT(DocumentValidation::gridCoordinates(1e300, 2e300, 4), ElementsAre(1e300));
}

TEST(GridCoordinates, StopWhereAnAdditionLeavesTheRange) {
  constexpr double highest = std::numeric_limits<double>::max();
  EXPECT_THAT(DocumentValidation::gridCoordinates(highest, highest, highest), ElementsAre(highest));
}

}  // namespace
}  // namespace korrin::test
