#include "editing/editor.h"

#include <chrono>

#include <gtest/gtest.h>

#include "korrin/validation/document_validation_error.h"

#include "documents/plot_document.h"
#include "scratch.h"

namespace korrin::host {
namespace {

KorrinProject festival() {
  return decodeDocument(exampleDocument("festival-main-stage"), DateStrategy::iso8601);
}

DocumentCommand labelled(const KorrinProject& project, std::size_t index, const char* label) {
  PlotItem item = project.items[index];
  item.label = label;
  return DocumentCommand::replaceItems({item});
}

DocumentCommand deletion(const KorrinProject& project, std::size_t index) {
  return DocumentCommand::deleteItems({project.items[index].id});
}

KorrinProject withoutTime(KorrinProject project) {
  project.metadata.modifiedAt = Instant{};
  return project;
}

TEST(Editor, UndoesLastEditFirst) {
  const KorrinProject start = festival();
  Editor editor(start);
  editor.apply(labelled(start, 8, "first"), "one");
  editor.apply(deletion(start, 9), "two");
  EXPECT_EQ(editor.undo()->title, "two");
  EXPECT_EQ(editor.project().items[8].label, "first");
  EXPECT_EQ(editor.project().items.size(), start.items.size());
  EXPECT_EQ(editor.undo()->title, "one");
  EXPECT_EQ(withoutTime(editor.project()), withoutTime(start));
  EXPECT_FALSE(editor.undo().has_value());
}

TEST(Editor, RedoesInTheOrderOfTheEdits) {
  const KorrinProject start = festival();
  Editor editor(start);
  EXPECT_FALSE(editor.redo().has_value());
  editor.apply(labelled(start, 8, "first"), "one");
  editor.apply(deletion(start, 9), "two");
  const KorrinProject end = editor.project();
  editor.undo();
  editor.undo();
  EXPECT_EQ(editor.redo()->title, "one");
  EXPECT_EQ(editor.redo()->title, "two");
  EXPECT_EQ(withoutTime(editor.project()), withoutTime(end));
  EXPECT_FALSE(editor.redo().has_value());
  editor.undo();
  editor.undo();
  EXPECT_EQ(withoutTime(editor.project()), withoutTime(start));
}

TEST(Editor, ForgetsWhatWasUndoneWithTheNextEdit) {
  const KorrinProject start = festival();
  Editor editor(start);
  editor.apply(labelled(start, 8, "first"), "one");
  editor.undo();
  editor.apply(labelled(start, 8, "second"), "two");
  EXPECT_FALSE(editor.redo().has_value());
  EXPECT_EQ(editor.undo()->title, "two");
  EXPECT_FALSE(editor.undo().has_value());
}

TEST(Editor, RefusesAnEditThatWouldNotBeValid) {
  const KorrinProject start = festival();
  Editor editor(start);
  editor.apply(labelled(start, 8, "first"), "one");
  editor.undo();
  const KorrinProject before = editor.project();
  PlotItem item = start.items[8];
  item.position.x = 1e7;
  EXPECT_THROW(editor.apply(DocumentCommand::replaceItems({item}), "far away"),
               DocumentValidationError);
  EXPECT_EQ(editor.project(), before);
  EXPECT_TRUE(editor.redo().has_value());
}

TEST(Editor, IsModifiedByMoreThanTheTimeOfAChange) {
  const KorrinProject start = festival();
  Editor editor(start);
  EXPECT_FALSE(editor.isModified());
  editor.apply(labelled(start, 8, "first"), "one");
  EXPECT_TRUE(editor.isModified());
  editor.markSaved();
  EXPECT_FALSE(editor.isModified());
  editor.undo();
  EXPECT_TRUE(editor.isModified());
  editor.redo();
  EXPECT_FALSE(editor.isModified());
}

TEST(Editor, ReadsTheClockOfItsEnvironment) {
  Environment environment = Environment::system();
  environment.now = [] { return Instant(std::chrono::seconds(1)); };
  const KorrinProject start = festival();
  Editor editor(start, environment);
  editor.apply(labelled(start, 8, "first"), "one");
  EXPECT_EQ(editor.project().metadata.modifiedAt, Instant(std::chrono::seconds(1)));
}

}  // namespace
}  // namespace korrin::host
