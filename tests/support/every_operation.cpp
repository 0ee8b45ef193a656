#include "tests/support/every_operation.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "korrin/commands/document_command.h"
#include "korrin/geometry/korrin_geometry.h"
#include "korrin/model/document_coding.h"
#include "korrin/preflight/preflight_engine.h"
#include "korrin/templates/korrin_template.h"
#include "korrin/validation/document_validation.h"
#include "korrin/validation/embedded_asset_safety.h"

#include "tests/support/corpora.h"
#include "tests/support/image_builder.h"
#include "tests/support/pdf_builder.h"
#include "tests/support/random_edits.h"
#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

using Operations = std::vector<Operation>;

// The outcome of an operation that may throw what it promises to throw, and nothing else.
template <class Action>
std::string textOf(Action action) {
  try {
    return action();
  } catch (const DecodingError& error) {
    return std::string(error.what());
  } catch (const EncodingError& error) {
    return std::string(error.what());
  } catch (const DocumentValidationError& error) {
    return std::string(error.what());
  }
}

std::string verdict(std::span<const std::byte> bytes, std::optional<std::string_view> mediaType) {
  return textOf([&] { return std::to_string(EmbeddedAssetSafety::validate(bytes, mediaType)); });
}

void addCoding(Operations& all) {
  for (const DateStrategy dates : {DateStrategy::iso8601, DateStrategy::secondsSinceReferenceDate})
    for (const bool isPretty : {false, true}) {
      EncodingOptions options;
      options.prettyPrinted = options.sortedKeys = isPretty;
      options.dates = dates;
      all.push_back({std::string("Encode") + (isPretty ? "Pretty" : "Compact") +
                         (dates == DateStrategy::iso8601 ? "WithDates" : "WithSeconds"),
                     [options](const KorrinProject& project) {
                       return textOf([&] { return encodeJSON(project, options); });
                     }});
    }
  all.push_back({"Decode", [](const KorrinProject& project) {
                   return textOf(
                       [&] { return encodeJSON(decodeJSON<KorrinProject>(encodeJSON(project))); });
                 }});
  all.push_back({"DecodeInAnotherOrder", [](const KorrinProject& project) {
                   return textOf([&] {
                     EncodingOptions sorted;
                     sorted.sortedKeys = true;
                     return encodeJSON(decodeJSON<KorrinProject>(encodeJSON(project, sorted)));
                   });
                 }});
  all.push_back({"DecodeATruncatedDocument", [](const KorrinProject& project) {
                   return textOf([&] {
                     std::string text = encodeJSON(project);
                     text.resize(text.size() / 2);
                     return encodeJSON(decodeJSON<KorrinProject>(text));
                   });
                 }});
  all.push_back({"DecodeAWrongDocument", [](const KorrinProject& project) {
                   return textOf([&] {
                     const std::string text =
                         replaced(encodeJSON(project), "\"assetManifest\":", "\"assets\":");
                     return encodeJSON(decodeJSON<KorrinProject>(text));
                   });
                 }});
  all.push_back({"PeekVersions", [](const KorrinProject& project) {
                   return textOf([&] { return encodeJSON(peekVersions(encodeJSON(project))); });
                 }});
}

void addInspection(Operations& all) {
  all.push_back({"Validate", [](const KorrinProject& project) {
                   return textOf([&] {
                     DocumentValidation::validate(project);
                     return std::string("valid");
                   });
                 }});
  all.push_back({"GridCoordinates", [](const KorrinProject& project) {
                   const double width = project.stage.size.width;
                   return std::to_string(
                       DocumentValidation::gridCoordinates(-width, width, 250).size());
                 }});
  all.push_back({"Preflight", [](const KorrinProject& project) {
                   std::string text;
                   for (const PreflightIssue& issue :
                        PreflightEngine::inspect(project, {"builtin.unknown"}))
                     text += issue.id.str() + issue.title.str() + issue.detail.str() + "\n";
                   return text;
                 }});
  all.push_back({"HashAndCompare", [](const KorrinProject& project) {
                   const KorrinProject copy = project;
                   return std::to_string(std::hash<KorrinProject>{}(copy)) +
                          (copy == project ? "=" : "!");
                 }});
  all.push_back({"Select", [](const KorrinProject& project) {
                   std::string text;
                   for (const PlotItem& item : project.items) {
                     text += project.canSelectItem(item) ? 's' : '-';
                     text += project.canEditItem(item) ? 'e' : '-';
                     text += item.legendText().str();
                   }
                   const auto layer = project.resolvedActiveLayerID(std::nullopt);
                   return text + (layer ? layer->text() : "none");
                 }});
}

// Commands are drawn beforehand: it is their application that is an operation.
void addCommands(Operations& all) {
  const KorrinProject drawnFor = sampleProject();
  for (unsigned seed = 0; seed < 24; ++seed) {
    unsigned state = seed + 1;
    RandomEdits edits([&state](int limit) {
      state = state * 1664525 + 1013904223;
      return static_cast<int>((state >> 8) % static_cast<unsigned>(limit));
    });
    all.push_back({"Command" + std::to_string(seed),
                   [command = edits.reversibleCommand(drawnFor)](const KorrinProject& project) {
                     TestEnvironment environment;
                     KorrinProject edited = project;
                     const CommandResult result = command.apply(edited, environment);
                     std::string text = encodeJSON(edited);
                     result.inverse.apply(edited, environment);
                     return text + encodeJSON(edited);
                   }});
  }
  all.push_back({"Group", [](const KorrinProject& project) {
                   TestEnvironment environment;
                   IDSet selection;
                   for (const PlotItem& item : project.items) selection.insert(item.id);
                   KorrinProject edited = project;
                   if (const auto command = project.groupingCommand(selection, environment))
                     command->apply(edited, environment);
                   return encodeJSON(edited);
                 }});
  for (const ItemAlignment alignment : allCases<ItemAlignment>())
    all.push_back(
        {"Align" + std::string(rawValue(alignment)), [alignment](const KorrinProject& project) {
           return encodeJSON(KorrinGeometry::applying(alignment, project.items));
         }});
}

void addTemplates(Operations& all) {
  for (const KorrinTemplateID id : allCases<KorrinTemplateID>())
    all.push_back({"Template_" + std::string(rawValue(id)), [id](const KorrinProject&) {
                     TestEnvironment environment;
                     return encodeJSON(KorrinProject::template_(id, environment));
                   }});
  all.push_back({"Example", [](const KorrinProject&) {
                   TestEnvironment environment;
                   return encodeJSON(KorrinProject::example(environment));
                 }});
  all.push_back({"NewDocument", [](const KorrinProject&) {
                   TestEnvironment environment;
                   return encodeJSON(KorrinProject::newDocument(environment));
                 }});
}

void addAssets(Operations& all) {
  for (NamedImage& image : imagesOfEveryKind(30, 20))
    all.push_back({"Image_" + image.name, [bytes = image.bytes](const KorrinProject&) {
                     return verdict(bytes, std::nullopt);
                   }});
  const std::string page = "/MediaBox [0 0 300 400]";
  const std::vector<std::pair<std::string, std::string>> files = {
      {"Table", onePage(page)},
      {"ObjectStream", onePageInObjectStream(page)},
      {"Rebuilt", replaced(onePage(page), "startxref", "xxxxxxxxx")}};
  for (const auto& file : files)
    all.push_back({"PdfWith" + file.first, [bytes = file.second](const KorrinProject&) {
                     return verdict(asBytes(bytes), "application/pdf");
                   }});
  const std::filesystem::path encrypted =
      std::filesystem::path(KORRIN_SOURCE_DIR) / "tests/validation/pdf/documents";
  for (const char* name : {"aes_128", "aes_256", "rc4_40", "rc4_40_password"})
    all.push_back({std::string("PdfWith") + name,
                   [file = readFile(encrypted / (std::string(name) + ".pdf"))](
                       const KorrinProject&) { return verdict(file, "application/pdf"); }});
}

void addTexts(Operations& all) {
  all.push_back({"NormaliseAndCompareTexts", [](const KorrinProject&) {
                   const Text composed("caf\u00E9 \uAC00");
                   const Text decomposed(std::string("cafe\u0301 \u1100\u1161"));
                   const Text repaired(std::string("\xFF \xC3"));
                   return std::to_string(composed == decomposed) + repaired.str() +
                          (composed < repaired ? "<" : ">");
                 }});
  all.push_back({"Identifiers", [](const KorrinProject&) {
                   return UUID::fromText("01234567-89ab-cdef-0123-456789ABCDEF")->text();
                 }});
}

}  // namespace

const std::vector<Operation>& everyOperation() {
  static const Operations operations = [] {
    Operations all;
    addCoding(all);
    addInspection(all);
    addCommands(all);
    addTemplates(all);
    addAssets(all);
    addTexts(all);
    return all;
  }();
  return operations;
}

}  // namespace korrin::test
