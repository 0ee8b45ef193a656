#include "korrin/model/technical_lists.h"

#include <string>

#include <gtest/gtest.h>

#include "korrin/model/document_coding.h"

#include "tests/support/full_project.h"
#include "tests/support/record_laws.h"

namespace korrin {
namespace {

const KorrinProject filled = test::fullProject();
const KorrinProject sparse = test::sparseProject();

TEST(InputChannel, KeepsTheRecordLaws) {
  test::expectRecordLaws(filled.inputs[0]);
  test::expectRecordLaws(sparse.inputs[0]);
}

TEST(InputChannel, WithoutANumberIsNotChannelZero) {
  InputChannel zero = sparse.inputs[0];
  zero.channel = 0;
  EXPECT_FALSE(zero == sparse.inputs[0]);
  EXPECT_NE(std::hash<InputChannel>{}(zero), std::hash<InputChannel>{}(sparse.inputs[0]));
  EXPECT_NE(encodeJSON(zero).find("\"channel\":0,"), std::string::npos);
  EXPECT_EQ(encodeJSON(sparse.inputs[0]).find("\"channel\""), std::string::npos);
}

TEST(MonitorMix, KeepsTheRecordLaws) {
  test::expectRecordLaws(filled.monitorMixes[0]);
  test::expectRecordLaws(sparse.monitorMixes[0]);
}

TEST(EquipmentRequirement, KeepsTheRecordLaws) {
  test::expectRecordLaws(filled.equipmentRequirements[0]);
  test::expectRecordLaws(sparse.equipmentRequirements[0]);
}

TEST(EquipmentRequirement, HoldsANegativeQuantity) {
  EquipmentRequirement requirement = filled.equipmentRequirements[0];
  requirement.quantity = -1;
  const std::string text = encodeJSON(requirement);
  EXPECT_NE(text.find("\"quantity\":-1,"), std::string::npos);
  EXPECT_EQ(decodeJSON<EquipmentRequirement>(text).quantity, -1);
}

TEST(ProjectNote, KeepsTheRecordLaws) { test::expectRecordLaws(filled.notes[0]); }

TEST(ProjectNote, DiffersByItsIdentifierAlone) {
  ProjectNote other = filled.notes[0];
  other.id = test::numberedID(99);
  EXPECT_FALSE(other == filled.notes[0]);
}

TEST(TechnicalList, KeepsItsOrderAndItsDuplicates) {
  const InputChannel kick = filled.inputs[0];
  InputChannel snare = kick;
  snare.source = "Snare";
  const List<InputChannel> inputs = {snare, kick, snare};
  EXPECT_TRUE(decodeJSON<List<InputChannel>>(encodeJSON(inputs)) == inputs);
}

}  // namespace
}  // namespace korrin
