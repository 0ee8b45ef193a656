// korrin schema as its callers see it.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "scratch.h"
#include "tests/support/files.h"

namespace korrin::host {
namespace {

using testing::HasSubstr;

TEST(Schema, IsThatOfDocumentsUnlessReportsAreAskedFor) {
  const Scratch scratch;
  const std::string ofDocuments = test::contentOfSource("schema/document.schema.json");
  for (const std::string arguments : {"schema", "schema document", "schema --dates iso8601"}) {
    const Outcome outcome = scratch.korrin(arguments);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, ofDocuments) << arguments;
    EXPECT_EQ(outcome.err, "");
  }
  EXPECT_EQ(scratch.korrin("schema report").out,
            test::contentOfSource("schema/check-report.schema.json"));
  EXPECT_EQ(scratch.korrin("schema assets").out,
            test::contentOfSource("schema/asset-report.schema.json"));
}

TEST(Schema, FollowsTheDateStrategy) {
  const Scratch scratch;
  EXPECT_THAT(scratch.korrin("schema --dates secondsSince1970").out,
              HasSubstr("\"urn:korrincore:document:1:secondsSince1970\""));
}

TEST(Schema, OfNothingElseIsThere) {
  const Scratch scratch;
  const Outcome outcome = scratch.korrin("schema song");
  EXPECT_EQ(outcome.status, 64);
  EXPECT_THAT(outcome.err, HasSubstr("there is no \"song\" among document, report, assets"));
  EXPECT_EQ(outcome.out, "");
}

TEST(Schema, ThatCannotBeWrittenIsAnError) {
  const Scratch scratch;
  const Outcome outcome = scratch.korrin("schema >/dev/full");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("standard output cannot be written"));
}

}  // namespace
}  // namespace korrin::host
