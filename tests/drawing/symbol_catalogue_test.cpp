#include "korrin/drawing/symbol_catalogue.h"

#include <algorithm>
#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korrin/drawing/plot_drawing.h"
#include "korrin/preflight/preflight_engine.h"
#include "korrin/templates/korrin_template.h"
#include "korrin/validation/document_validation.h"

#include "tests/support/sample_project.h"

namespace korrin {
namespace {

using testing::MatchesRegex;

TEST(SymbolCatalogue, NamesEachSymbolOnceInOrder) {
  const auto symbols = builtInSymbols();
  EXPECT_TRUE(std::ranges::is_sorted(symbols, {}, &Symbol::assetID));
  EXPECT_EQ(std::ranges::adjacent_find(symbols, {}, &Symbol::assetID), symbols.end());
  std::set<std::string_view> names;
  for (const Symbol& symbol : symbols) {
    EXPECT_TRUE(names.insert(symbol.name).second) << symbol.name;
    EXPECT_THAT(std::string(symbol.assetID), MatchesRegex("krn\\.[a-z]+\\.[a-z-]+\\.v[0-9]+"));
  }
}

TEST(SymbolCatalogue, HoldsWhatAStageNeeds) {
  std::set<std::string_view> names;
  for (const Symbol& symbol : builtInSymbols()) names.insert(symbol.name);
  for (const char* name :
       {"Grand piano", "Upright bass", "Percussion", "Horn stand", "Choir riser", "Music stand",
        "DJ table", "Laptop", "Stool", "Boom stand", "Round-base stand", "Side fill", "Drum fill",
        "Sub-snake", "Power distribution", "Stairs", "Handrail", "Camera", "Person seated"})
    EXPECT_TRUE(names.contains(name)) << name;
}

TEST(SymbolCatalogue, KnowsTheArtworkOfEveryTemplate) {
  const std::unordered_set<Text> known = builtInAssetIDs();
  EXPECT_EQ(known.size(), builtInSymbols().size());
  for (const KorrinTemplateID id : allCases<KorrinTemplateID>())
    for (const PlotItem& item : KorrinProject::template_(id).items) {
      EXPECT_TRUE(known.contains(item.assetID)) << item.assetID.str();
      const auto symbol =
          std::ranges::find(builtInSymbols(), std::string_view(item.assetID), &Symbol::assetID);
      EXPECT_EQ(symbol->kind, item.kind) << item.assetID.str();
    }
}

TEST(SymbolCatalogue, MakesItemsThatNothingIsFoundAbout) {
  KorrinProject project = KorrinProject::newDocument();
  project.stage.size = {.width = 100'000, .height = 100'000};
  for (const Symbol& symbol : builtInSymbols())
    project.items.push_back(makeItem(symbol, StagePoint::zero, project.layers[0].id));
  DocumentValidation::validate(project);
  EXPECT_TRUE(PreflightEngine::inspect(project, builtInAssetIDs()).empty());
}

TEST(SymbolCatalogue, MakesAnItemOfTheSymbol) {
  const test::TestEnvironment environment;
  const Symbol& symbol = builtInSymbols().front();
  const UUID layer = test::identifier(7);
  const PlotItem item = makeItem(symbol, {.x = 3, .y = -4}, layer, environment);
  EXPECT_EQ(environment.identifiersMade(), 1);
  EXPECT_EQ(environment.clockReads(), 0);
  const PlotItem expected = {
      .id = test::TestEnvironment::identifierMade(1),
      .kind = symbol.kind,
      .assetID = symbol.assetID,
      .position = {.x = 3, .y = -4},
      .size = symbol.size,
      .rotationDegrees = 0,
      .isFlippedHorizontally = false,
      .isFlippedVertically = false,
      .layerID = layer,
      .groupID = std::nullopt,
      .isLocked = false,
      .label = symbol.name,
      .riserHeightMillimeters = std::nullopt,
      .style = {.tintHex = std::nullopt, .labelVisible = true, .labelScale = 1}};
  EXPECT_EQ(item, expected);
}

TEST(SymbolCatalogue, DrawsNoTwoSymbolsAlike) {
  std::set<std::string> drawings;
  for (const Symbol& symbol : builtInSymbols()) {
    PlotItem item = makeItem(symbol, StagePoint::zero, UUID());
    item.size = {.width = 1000, .height = 1000};
    item.label = "";
    item.style.tintHex = "808080";
    std::string picture = drawSymbol(item);
    picture.erase(picture.find("<title>"), picture.find("</title>") - picture.find("<title>"));
    EXPECT_TRUE(drawings.insert(picture).second) << symbol.name;
  }
}

}  // namespace
}  // namespace korrin
