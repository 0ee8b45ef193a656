#include "documents/plot_document.h"

#include <filesystem>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "documents/waiver_file.h"
#include "scratch.h"

namespace korrin::host {
namespace {

constexpr auto iso = DateStrategy::iso8601;

Refusal refusal(auto action) {
  try {
    action();
  } catch (const Refusal& refused) {
    return refused;
  }
  ADD_FAILURE() << "not refused";
  return Refusal(RefusalReason::unreadable, "");
}

TEST(DecodeDocument, RefusesANewerDocumentBeforeItsWords) {
  const std::string document =
      replaced(replaced(newerDocument(), "\"schemaVersion\": 1", "\"schemaVersion\": 9"),
               "\"audienceEdge\": \"top\"", "\"audienceEdge\": \"all around\"");
  const Refusal refused = refusal([&] { decodeDocument(document, iso); });
  EXPECT_EQ(refused.reason(), RefusalReason::needsNewerVersion);
  EXPECT_EQ(refused.exitCode(), ExitCode::needsNewerVersion);
  EXPECT_STREQ(refused.what(),
               "needs a newer version of korrin: the document is in format version 9 and demands a "
               "reader of version 7; this program reads up to version 1");
}

TEST(DecodeDocument, ReadsALaterDocumentThatDemandsNoNewerReader) {
  const std::string document = replaced(exampleDocument("festival-main-stage"),
                                        "\"schemaVersion\": 1", "\"schemaVersion\": 2");
  EXPECT_EQ(decodeDocument(document, iso).schemaVersion, 2);
}

TEST(DecodeDocument, NamesThePlaceOfWhatIsWrong) {
  const std::string document = replaced(exampleDocument("festival-main-stage"),
                                        "\"labelScale\": 1.0", "\"labelScale\": \"1.0\"");
  const Refusal refused = refusal([&] { decodeDocument(document, iso); });
  EXPECT_EQ(refused.reason(), RefusalReason::notAPlot);
  EXPECT_EQ(refused.exitCode(), ExitCode::unusable);
  EXPECT_EQ(refused.keyPath(), "items[0].style.labelScale");
  EXPECT_NE(std::string(refused.what()).find("items[0].style.labelScale: expected a number"),
            std::string::npos)
      << refused.what();
}

TEST(DecodeDocument, RefusesWhatIsNoPlotAtAll) {
  for (const std::string document : {"{", "[]", "null", "{}", "\xFF", "PNG", "{\"a\": 1}"})
    EXPECT_EQ(refusal([&] { decodeDocument(document, iso); }).reason(), RefusalReason::notAPlot)
        << document;
}

TEST(DecodeDocument, HintsAtTheOtherWayToWriteDates) {
  const std::string numbers = exampleDocument("festival-other-host");
  const std::string texts = exampleDocument("festival-main-stage");
  EXPECT_TRUE(std::string(refusal([&] { decodeDocument(numbers, iso); }).what())
                  .ends_with("(its dates are numbers: say what they count with --dates)"));
  EXPECT_TRUE(
      std::string(refusal([&] { decodeDocument(texts, DateStrategy::secondsSince1970); }).what())
          .ends_with("(its dates are texts: use --dates iso8601)"));
}

TEST(DecodeDocument, HintsAtNothingWhenDatesAreNotTheOnlyFault) {
  const std::string document =
      replaced(exampleDocument("festival-other-host"), "\"top\"", "\"up\"");
  EXPECT_EQ(std::string(refusal([&] { decodeDocument(document, iso); }).what()).find("--dates"),
            std::string::npos);
}

TEST(RequireValid, SaysWhatIsUnsafe) {
  KorrinProject project = decodeDocument(exampleDocument("festival-main-stage"), iso);
  EXPECT_NO_THROW(requireValid(project));
  project.items.push_back(project.items.front());
  const Refusal refused = refusal([&] { requireValid(project); });
  EXPECT_EQ(refused.reason(), RefusalReason::invalid);
  EXPECT_STREQ(refused.what(), "is not valid: The project contains duplicate identifiers.");
}

TEST(RequireReplaceable, ProtectsNewerDocumentsOnly) {
  const Scratch scratch;
  EXPECT_NO_THROW(requireReplaceable(scratch.path("absent")));
  EXPECT_NO_THROW(requireReplaceable(scratch.write("empty", "")));
  EXPECT_NO_THROW(requireReplaceable(scratch.write("text", "not a plot")));
  EXPECT_NO_THROW(
      requireReplaceable(scratch.write("plot", exampleDocument("festival-main-stage"))));
  const std::string newer = scratch.write("newer", newerDocument());
  EXPECT_EQ(refusal([&] { requireReplaceable(newer); }).reason(), RefusalReason::needsNewerVersion);
}

TEST(WriteDocument, KnowsWhatWasReadByEachOfItsNames) {
  const Scratch scratch;
  const std::string document = exampleDocument("festival-main-stage");
  const std::string path = scratch.write("plot.json", document);
  std::filesystem::create_symlink(path, scratch.path("link.json"));
  std::filesystem::create_directory_symlink(".", scratch.path("here"));
  std::ostringstream out;
  Console console{out, out, {}, {}};
  const Input input = readDocument(path);
  scratch.write("plot.json", document + " ");  // somebody else's
  for (const std::string name : {"plot.json", "./plot.json", "link.json", "here/plot.json"})
    EXPECT_THROW(writeDocument(scratch.path(name), "{}", input, console), NotReplaced) << name;
  EXPECT_EQ(contentOf(path), document + " ");
  std::filesystem::remove(path);
  for (const std::string name : {"./plot.json", "link.json"})
    EXPECT_THROW(writeDocument(scratch.path(name), "{}", input, console), NotReplaced) << name;
  EXPECT_NO_THROW(writeDocument(scratch.path("other.json"), "{}", input, console));
  EXPECT_EQ(contentOf(scratch.path("other.json")), "{}");
}

TEST(WaiverFile, IsNotWrittenOverWhatSomebodyElseAdded) {
  const Scratch scratch;
  std::ostringstream out;
  Console console{out, out, {}, {}};
  const WaiverList none{.schemaVersion = WaiverList::currentSchemaVersion, .waivers = {}};
  WaiverFile mine = openWaivers(scratch.path("plot.waivers.json"));
  WaiverFile yours = openWaivers(scratch.path("plot.waivers.json"));
  EXPECT_FALSE(yours.list);
  writeWaivers(yours, none, console);
  EXPECT_THROW(writeWaivers(mine, none, console), NotReplaced);
  EXPECT_EQ(readWaivers(scratch.path("plot.waivers.json")), none);
}

TEST(RequireReplaceable, RefusesWhatCannotBeLookedAt) {
  const Scratch scratch;
  EXPECT_STREQ(refusal([&] { requireReplaceable(scratch.path(".")); }).what(),
               "is not replaced, as it cannot be read: it is a directory");
}

}  // namespace
}  // namespace korrin::host
