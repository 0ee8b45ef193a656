#include <string>

#include <gtest/gtest.h>

#include "korrin/model/document_coding.h"

#include "tests/support/files.h"
#include "tests/support/full_project.h"

namespace korrin {
namespace {

// The document is the value, key for key, and the value is written as the document, byte for byte.
template <class Value>
void expectGolden(const std::string& name, const Value& value) {
  std::string document = test::contentOfSource("tests/golden/" + name + ".json");
  ASSERT_TRUE(document.ends_with('\n'));
  document.pop_back();
  const auto decoded = decodeJSON<Value>(document);
  EXPECT_TRUE(decoded == value);
  EXPECT_EQ(encodeJSON(decoded), document);
  EXPECT_EQ(encodeJSON(value), document);
}

const KorrinProject project = test::fullProject();

TEST(GoldenDocument, OfAStagePoint) { expectGolden("StagePoint", project.items[0].position); }
TEST(GoldenDocument, OfAStageSize) { expectGolden("StageSize", project.items[0].size); }
TEST(GoldenDocument, OfAStageDefinition) { expectGolden("StageDefinition", project.stage); }
TEST(GoldenDocument, OfAPlotItemStyle) { expectGolden("PlotItemStyle", project.items[0].style); }
TEST(GoldenDocument, OfAPlotItem) { expectGolden("PlotItem", project.items[0]); }
TEST(GoldenDocument, OfAPlotLayer) { expectGolden("PlotLayer", project.layers[0]); }
TEST(GoldenDocument, OfAPlotGroup) { expectGolden("PlotGroup", project.groups[0]); }
TEST(GoldenDocument, OfAnInputChannel) { expectGolden("InputChannel", project.inputs[0]); }
TEST(GoldenDocument, OfAMonitorMix) { expectGolden("MonitorMix", project.monitorMixes[0]); }
TEST(GoldenDocument, OfAnEquipmentRequirement) {
  expectGolden("EquipmentRequirement", project.equipmentRequirements[0]);
}
TEST(GoldenDocument, OfAProjectNote) { expectGolden("ProjectNote", project.notes[0]); }
TEST(GoldenDocument, OfProjectMetadata) { expectGolden("ProjectMetadata", project.metadata); }
TEST(GoldenDocument, OfExportSettings) { expectGolden("ExportSettings", project.exportSettings); }
TEST(GoldenDocument, OfAnAssetManifestEntry) {
  expectGolden("AssetManifestEntry", project.assetManifest[0]);
}
TEST(GoldenDocument, OfAProject) { expectGolden("KorrinProject", project); }
TEST(GoldenDocument, OfAProjectWithoutOptionalFields) {
  expectGolden("KorrinProject-sparse", test::sparseProject());
}

}  // namespace
}  // namespace korrin
