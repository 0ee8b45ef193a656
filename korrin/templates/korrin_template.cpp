#include "korrin/templates/korrin_template.h"

#include <algorithm>
#include <iterator>

#include "korrin/coding/json_codec.h"
#include "korrin/foundation/precondition.h"
#include "korrin/templates/plot_tables.h"

namespace korrin {

namespace json {

template struct Codec<KorrinTemplateID>;
template struct Codec<List<KorrinTemplateID>>;

}  // namespace json

namespace {

struct ChooserEntry {
  KorrinTemplateID id;
  std::string_view title;
  std::string_view summary;
  std::string_view systemImage;
};

constexpr ChooserEntry chooser[] = {
    {KorrinTemplateID::soloAcoustic, "Solo Acoustic",
     "Vocal, acoustic guitar, DI, wedge, inputs, and a compact 8 × 6 m stage.", "music.mic"},
    {KorrinTemplateID::powerTrio, "Power Trio",
     "Drums, bass, guitar, three mixes, and a practical festival input list.", "guitars"},
    {KorrinTemplateID::electronicDuo, "Electronic Duo",
     "Stereo playback, two performers, IEMs, vocal inputs, and clean power.", "waveform.path.ecg"},
    {KorrinTemplateID::fivePieceBand, "Five-Piece Band",
     "A complete festival-ready plot with 11 inputs, three mixes, and production notes.",
     "person.3.fill"},
};
consteval bool chooserFollowsTheCases() {
  constexpr auto cases = allCases<KorrinTemplateID>();
  return std::equal(std::begin(chooser), std::end(chooser), cases.begin(), cases.end(),
                    [](const ChooserEntry& entry, KorrinTemplateID id) { return entry.id == id; });
}
static_assert(chooserFollowsTheCases());

const ChooserEntry& entry(KorrinTemplateID id) {
  const auto place = static_cast<std::size_t>(id);
  precondition(place < std::size(chooser), "a template identifier is no case");
  return chooser[place];
}

KorrinProject fivePieceBand(const Environment& environment) {
  KorrinProject project = KorrinProject::example(environment);
  ProjectMetadata& metadata = project.metadata;
  metadata.title = "Five-Piece Band — Festival Main Stage";
  metadata.artist = "Band Name";
  metadata.venue = "";
  metadata.preparedBy = "Production";
  metadata.contactEmail = "";
  metadata.createdAt = environment.now();
  metadata.modifiedAt = environment.now();
  return project;
}

}  // namespace

std::string_view title(KorrinTemplateID id) { return entry(id).title; }
std::string_view summary(KorrinTemplateID id) { return entry(id).summary; }
std::string_view systemImage(KorrinTemplateID id) { return entry(id).systemImage; }

KorrinProject KorrinProject::template_(KorrinTemplateID id, const Environment& environment) {
  switch (id) {
    case KorrinTemplateID::soloAcoustic:
      return templates::build(templates::soloAcousticTables(), environment);
    case KorrinTemplateID::powerTrio:
      return templates::build(templates::powerTrioTables(), environment);
    case KorrinTemplateID::electronicDuo:
      return templates::build(templates::electronicDuoTables(), environment);
    case KorrinTemplateID::fivePieceBand:
      break;
  }
  precondition(id == KorrinTemplateID::fivePieceBand, "a template identifier is no case");
  return fivePieceBand(environment);
}

KorrinProject KorrinProject::example(const Environment& environment) {
  return templates::build(templates::exampleTables(), environment);
}

const std::vector<KorrinTemplate>& KorrinTemplate::all() {
  static const std::vector<KorrinTemplate> templates = [] {
    const Environment environment = Environment::system();
    std::vector<KorrinTemplate> made;
    for (const KorrinTemplateID each : allCases<KorrinTemplateID>())
      made.push_back({.id = each, .project = KorrinProject::template_(each, environment)});
    return made;
  }();
  return templates;
}

}  // namespace korrin
