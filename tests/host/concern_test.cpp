#include "findings/concern.h"

#include <gtest/gtest.h>

#include "documents/plot_document.h"
#include "scratch.h"

namespace korrin::host {
namespace {

KorrinProject clubNight() {
  return decodeDocument(exampleDocument("club-night-with-findings"), DateStrategy::iso8601);
}

std::string concern(const KorrinProject& project, PreflightRule rule, std::optional<UUID> relatedID,
                    std::optional<UUID> recordID) {
  return Concerns(project).of(
      PreflightIssue(rule, PreflightSeverity::error, "title", "detail", relatedID, recordID));
}

TEST(Concerns, NameChannelAndSource) {
  const KorrinProject project = clubNight();
  const auto of = [&](std::size_t i) {
    return concern(project, PreflightRule::unplacedInput, std::nullopt, project.inputs[i].id);
  };
  EXPECT_EQ(of(0), "channel 1: Kick In");
  EXPECT_EQ(of(5), "channel 6");  // its source is blank
  EXPECT_EQ(of(project.inputs.size() - 1), "input: Talkback");
}

TEST(Concerns, NameTheMix) {
  const KorrinProject project = clubNight();
  const auto of = [&](std::size_t i) {
    return concern(project, PreflightRule::monitorWithoutOutput, std::nullopt,
                   project.monitorMixes[i].id);
  };
  EXPECT_EQ(of(0), "mix 1: Ángela");
  EXPECT_EQ(of(3), "mix 4");
}

TEST(Concerns, NameTheEquipment) {
  KorrinProject project = clubNight();
  const auto of = [&](std::size_t i) {
    return concern(project, PreflightRule::invalidEquipmentQuantity, std::nullopt,
                   project.equipmentRequirements[i].id);
  };
  EXPECT_EQ(of(0), "equipment: Active DI box");
  project.equipmentRequirements.edit(0).item = " ";
  EXPECT_EQ(of(0), "equipment: Audio");
}

TEST(Concerns, NameTheItemByItsLabelOrItsPlace) {
  const KorrinProject project = clubNight();
  const auto of = [&](std::size_t i) {
    return concern(project, PreflightRule::itemOutsideStage, project.items[i].id, std::nullopt);
  };
  EXPECT_EQ(of(0), "riser: Drum riser");
  EXPECT_EQ(of(2), "riser at -3600, 1200 mm");
  EXPECT_EQ(of(5), "amplifier at 1900.25, 2500 mm");
}

TEST(Concerns, FindABrokenLinkInEveryList) {
  const KorrinProject project = clubNight();
  const auto of = [&](const UUID& id) {
    return concern(project, PreflightRule::invalidPlotReference, std::nullopt, id);
  };
  EXPECT_EQ(of(project.inputs[6].id), "channel 7: Floor Tom");
  EXPECT_EQ(of(project.monitorMixes[1].id), "mix 1: BV 1");
  EXPECT_EQ(of(project.equipmentRequirements[2].id), "equipment: Clean 230 V power");
}

TEST(Concerns, LookOnlyInTheListOfTheRule) {
  const KorrinProject project = clubNight();
  EXPECT_EQ(
      concern(project, PreflightRule::unplacedInput, std::nullopt, project.monitorMixes[0].id), "");
}

TEST(Concerns, SayNothingOfWhatIsNotThere) {
  const KorrinProject project = clubNight();
  EXPECT_EQ(concern(project, PreflightRule::missingAsset, UUID{}, std::nullopt), "");
  EXPECT_EQ(concern(project, PreflightRule::missingAsset, std::nullopt, std::nullopt), "");
}

}  // namespace
}  // namespace korrin::host
