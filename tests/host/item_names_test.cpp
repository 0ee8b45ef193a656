#include "editing/item_names.h"

#include <gtest/gtest.h>

#include "documents/plot_document.h"
#include "editing/edit_words.h"
#include "scratch.h"

namespace korrin::host {
namespace {

KorrinProject festival() {
  return decodeDocument(exampleDocument("festival-main-stage"), DateStrategy::iso8601);
}

std::string refusalOf(auto action) {
  try {
    action();
  } catch (const LineError& error) {
    return error.what();
  }
  return "not refused";
}

TEST(ItemNames, AreIdentifiersOrLabels) {
  const KorrinProject project = festival();
  const ItemNames names(project);
  EXPECT_EQ(names.item("BV 1"), project.items[8]);
  EXPECT_EQ(names.item(project.items[8].id.text()), project.items[8]);
  EXPECT_EQ(names.item("68b4aef7-3eaa-4e17-9d8a-4eace693ae2d"), project.items[2]);
}

TEST(ItemNames, AreComparedAsTextsAre) {
  const KorrinProject project = festival();
  const ItemNames names(project);
  EXPECT_EQ(names.item("A\u0301ngela").label, "Ángela");
  EXPECT_EQ(refusalOf([&] { names.item("bv 1"); }),
            "there is no item \"bv 1\"; did you mean \"BV 1\"?");
  EXPECT_EQ(refusalOf([&] { names.item(""); }), "there is no item \"\"");
}

TEST(ItemNames, AreRefusedWhenSeveralItemsHaveTheLabel) {
  KorrinProject project = festival();
  project.items.edit(9).label = "BV 1";
  const ItemNames names(project);
  EXPECT_EQ(refusalOf([&] { names.item("BV 1"); }),
            "2 items are labelled \"BV 1\"; name one \"BV 1#1\", \"BV 1#2\" and so on, or by its "
            "identifier: " +
                project.items[8].id.text() + ", " + project.items[9].id.text());
  EXPECT_EQ(names.item(project.items[9].id.text()), project.items[9]);
}

TEST(ItemNames, TellItemsWithOneLabelApartByNumber) {
  KorrinProject project = festival();
  project.items.edit(9).label = "BV 1";
  EXPECT_EQ(ItemNames(project).item("BV 1#1"), project.items[8]);
  EXPECT_EQ(ItemNames(project).item("BV 1#2"), project.items[9]);
  for (const char* name :
       {"BV 1#3", "BV 1#99999999999999999999", "BV 1#0", "BV 1#", "#1", "BV 1#1 "})
    EXPECT_NE(refusalOf([&] { ItemNames(project).item(name); }), "not refused") << name;
  EXPECT_EQ(refusalOf([&] { ItemNames(project).item("BV 1#3"); }),
            "there is no item \"BV 1#3\": 2 items are labelled \"BV 1\"");
  project.items.edit(0).label = "BV 1#2";
  EXPECT_EQ(ItemNames(project).item("BV 1#2"), project.items[0]);
}

TEST(ItemNames, OfTheirOwnFindEveryItem) {
  KorrinProject project = festival();
  project.items.edit(9).label = "BV 1";
  project.items.edit(10).label = project.items[11].id.text();
  const ItemNames names(project);
  for (const PlotItem& item : project.items) EXPECT_EQ(names.item(names.nameOf(item)), item);
}

TEST(EditableItems, ComeInTheOrderNamed) {
  const KorrinProject project = festival();
  EXPECT_EQ(ItemNames(project).editableItems({"BV 2", "BV 1"}),
            (List<PlotItem>{project.items[9], project.items[8]}));
}

TEST(EditableItems, AreRefusedWhenNamedTwice) {
  const KorrinProject project = festival();
  const ItemNames names(project);
  EXPECT_EQ(refusalOf([&] {
              names.editableItems({"BV 1", "BV 2", "BV 1"});
            }),
            "\"BV 1\" is named twice");
  EXPECT_EQ(refusalOf([&] {
              names.editableItems({"BV 1", project.items[8].id.text()});
            }),
            "\"" + project.items[8].id.text() + "\" is named twice");
}

TEST(EditableItems, AreRefusedWithTheLockOrLayerInTheWay) {
  KorrinProject project = festival();
  project.items.edit(9).layerID = UUID{};
  project.layers.edit(0).isVisible = false;
  const ItemNames names(project);
  const auto reason = [&](const std::string& name) {
    return refusalOf([&] { names.editableItems({name}); });
  };
  EXPECT_EQ(reason("16A"), "\"16A\" is locked");
  EXPECT_EQ(reason("Banner 舞台"), "\"Banner 舞台\" is on the layer \"House\", which is locked");
  EXPECT_EQ(reason("Drum riser"), "\"Drum riser\" is on the layer \"Risers\", which is hidden");
  EXPECT_EQ(reason("BV 2"), "\"BV 2\" is on a layer that does not exist");
  EXPECT_EQ(reason("BV 1"), "not refused");
}

}  // namespace
}  // namespace korrin::host
