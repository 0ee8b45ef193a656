#include "terminal/similar_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "scratch.h"

namespace korrin::host {
namespace {

TEST(SimilarFile, IsLookedForBesideTheMissingOne) {
  const Scratch scratch;
  scratch.write("nachtzug.json", "");
  EXPECT_EQ(similarFileSuggestion(scratch.path("nachzug.json")),
            "; did you mean \"" + scratch.path("nachtzug.json") + "\"?");
  EXPECT_EQ(similarFileSuggestion(scratch.path("other.json")), "");
  EXPECT_EQ(similarFileSuggestion(scratch.path("nachtzug.json")), "") << "it is there";
  EXPECT_EQ(similarFileSuggestion(""), "");
  EXPECT_EQ(similarFileSuggestion(scratch.path("absent/nachtzug.json")), "");
}

TEST(SimilarFile, IsOfferedForEveryFileThatACommandReads) {
  const Scratch scratch;
  scratch.write("nachtzug.json", exampleDocument("festival-main-stage"));
  scratch.write("known.txt", "");
  for (const std::string command :
       {"check nachzug.json", "check nachtzug.json nachzug.json", "asset nachzug.json",
        "check --waivers nachzug.json nachtzug.json", "check --known-assets nown.txt nachtzug.json",
        "check --assets known.tx nachtzug.json", "fix nachzug.json",
        "diff nachtzug.json nachzug.json", "render --since nachzug.json nachtzug.json",
        "edit --script nachzug.json nachtzug.json"})
    EXPECT_THAT(scratch.korrin(command).err, testing::HasSubstr("; did you mean \"")) << command;
  EXPECT_THAT(scratch.korrin("check other.json").err, testing::Not(testing::HasSubstr("did you")));
}

TEST(SimilarFile, IsOfferedByCommands) {
  const Scratch scratch;
  scratch.write("nachtzug.json", exampleDocument("festival-main-stage"));
  for (const std::string command : {"fmt", "edit", "render"})
    EXPECT_EQ(scratch.korrin(command + " nachzug.json").err,
              "korrin: nachzug.json: cannot be read: No such file or directory; did you mean "
              "\"nachtzug.json\"?\n");
}

}  // namespace
}  // namespace korrin::host
