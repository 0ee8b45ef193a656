// A document becomes a plot, or one of three reasons why not.

#include "korrin/session/opening.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/full_project.h"
#include "tests/support/sample_project.h"

namespace korrin {
namespace {

std::string replaced(std::string text, const std::string& what, const std::string& with) {
  const std::size_t at = text.find(what);
  if (at == std::string::npos) throw std::logic_error("no " + what);
  return text.replace(at, what.size(), with);
}

template <class Outcome>
Outcome outcomeOf(const std::string& bytes, const DecodingOptions& options = {}) {
  return std::get<Outcome>(openDocument(bytes, options));
}

TEST(OpenDocument, GivesThePlotAndWhatSavingDrops) {
  const KorrinProject project = test::sampleProject();
  const std::string bytes =
      replaced(bytesToSave(project), "\"items\": [\n    {", "\"items\": [\n    {\"glow\": 1,");
  const auto opened = outcomeOf<OpenedDocument>(bytes);
  EXPECT_TRUE(opened.project == project);
  EXPECT_EQ(opened.unknownKeys, (UnknownKeys{1, {"items[0].glow"}}));
  EXPECT_EQ(outcomeOf<OpenedDocument>(bytesToSave(project)).unknownKeys, UnknownKeys{});
}

TEST(OpenDocument, LooksAtTheVersionsBeforeAnythingElse) {
  const auto newer =
      outcomeOf<NewerDocument>(R"({"schemaVersion": 7, "minimumReaderVersion": 2, "items": 3})");
  EXPECT_EQ(newer.versions, (DocumentVersions{7, 2}));
}

TEST(OpenDocument, OpensANewerFormatThatThisReaderMayRead) {
  KorrinProject project = test::sampleProject();
  project.schemaVersion = 7;
  const auto opened = outcomeOf<OpenedDocument>(encodeJSON(project));
  EXPECT_EQ(opened.project.schemaVersion, 7);
}

TEST(OpenDocument, SaysWhereWhatIsNoPlotFails) {
  EXPECT_STREQ(outcomeOf<UnreadableDocument>("").error.what(),
               "line 1, column 1: expected a value, found the end of the document");
  const std::string bytes =
      replaced(bytesToSave(test::sampleProject()), "\"kind\": \"micro", "\"kind\": \"macro");
  const auto unreadable = outcomeOf<UnreadableDocument>(bytes);
  EXPECT_EQ(unreadable.error.keyPath(), "items[0].kind");
  EXPECT_GT(unreadable.error.line(), 10u);
}

TEST(OpenDocument, RefusesBytesThatEndTooEarlyWhereverTheyEnd) {
  const std::string bytes = bytesToSave(test::fullProject());
  for (std::size_t length = 0; length + 1 < bytes.size(); length += 7)
    EXPECT_TRUE(std::holds_alternative<UnreadableDocument>(
        openDocument(std::string_view(bytes).substr(0, length))))
        << length;
}

TEST(OpenDocument, ReadsDatesAndNumbersAsItIsTold) {
  KorrinProject project = test::sampleProject();
  project.items.edit(0).riserHeightMillimeters = std::numeric_limits<double>::infinity();
  const std::string bytes = encodeJSON(
      project, {.dates = DateStrategy::secondsSince1970, .nonFinite = NonFinite::strings});
  EXPECT_TRUE(std::holds_alternative<UnreadableDocument>(openDocument(bytes)));
  const auto opened = outcomeOf<OpenedDocument>(
      bytes, {.dates = DateStrategy::secondsSince1970, .nonFinite = NonFinite::strings});
  EXPECT_TRUE(opened.project == project);
}

TEST(OpenDocument, HandsOverAPlotThatIsNotSafeWithTheReason) {
  KorrinProject project = test::sampleProject();
  project.items.push_back(project.items.front());
  const auto unsafe = outcomeOf<UnsafeDocument>(encodeJSON(project));
  EXPECT_EQ(unsafe.error, DocumentValidationError::duplicateIdentifiers);
  EXPECT_TRUE(unsafe.project == project);
}

TEST(BytesToSave, AreIndentedUnlessAskedOtherwise) {
  const KorrinProject project = test::fullProject();
  EXPECT_EQ(bytesToSave(project), encodeJSON(project, {.prettyPrinted = true}));
  EXPECT_EQ(bytesToSave(project, {}), encodeJSON(project));
}

TEST(BytesToSave, NameTheVersionThatTheyAre) {
  KorrinProject project = test::sampleProject();
  project.schemaVersion = 9;
  project.minimumReaderVersion = -3;
  const auto versions = peekVersions(bytesToSave(project));
  EXPECT_EQ(versions, (DocumentVersions{KorrinProject::currentSchemaVersion, -3}));
  EXPECT_EQ(project.schemaVersion, 9);
  project.schemaVersion = 0;
  EXPECT_EQ(peekVersions(bytesToSave(project)).schemaVersion, 0);
}

TEST(BytesToSave, AreRefusedForAPlotThatCouldNotBeOpenedAgain) {
  KorrinProject project = test::sampleProject();
  project.stage.size.width = -1;
  EXPECT_THROW(bytesToSave(project), DocumentValidationError);
  project = test::sampleProject();
  project.items.edit(0).riserHeightMillimeters = std::numeric_limits<double>::quiet_NaN();
  EXPECT_THROW(bytesToSave(project), EncodingError);
}

}  // namespace
}  // namespace korrin
