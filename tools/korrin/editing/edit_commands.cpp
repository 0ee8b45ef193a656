#include "editing/edit_commands.h"

#include <limits>

#include "editing/item_edits.h"
#include "editing/plot_looks.h"
#include "editing/record_edits.h"
#include "editing/session_steps.h"
#include "editing/structure_edits.h"

namespace korrin::host {
namespace {

constexpr std::size_t any = std::numeric_limits<std::size_t>::max();

}  // namespace

std::string EditCommand::use() const {
  return std::string(name) + (arguments.empty() ? "" : " ") + std::string(arguments);
}

const std::vector<EditCommand>& editCommands() {
  static const std::vector<EditCommand> all = {
      {"list", "[LIST]", "all items, or the records of another list, or all symbols", 0, 1,
       listRecords},
      {"show", "[LIST] [NAME]", "a record with everything that is known of it; the plot itself", 0,
       2, showRecord},
      {"find", "TEXT", "every text of the plot that holds it", 1, 1, findText},
      {"set", "PATH VALUE", "change a field: title, stage.size.width, GTR.rotationDegrees", 2, any,
       setFieldsOf},
      {"set", "LIST NAME FIELD VALUE...", "change fields of a record: input 7 source Kick", 4, any,
       setFieldsOf},
      {"add", "item SYMBOL X Y [FIELD VALUE]...", "put a symbol on the stage", 1, any, addRecord},
      {"add", "LIST [FIELD VALUE]...", "add a record at the end of its list", 1, any, addRecord},
      {"remove", "LIST NAME...", "take records away; layer NAME NAME moves its items", 2, any,
       removeRecords},
      {"link", "LIST NAME ITEM", "say which item shows an input, mix or equipment", 3, 3,
       linkRecord},
      {"unlink", "LIST NAME", "say that no item shows it", 2, 2, unlinkRecord},
      {"renumber", "LIST [FIRST]", "number inputs or mixes in their order", 1, 2, renumberList},
      {"stage", "WIDTH DEPTH [SIDE]", "size in millimetres, and where the audience is", 2, 3,
       setStage},
      {"paper", "SIZE", "what the plot is printed on: a4 or letter", 1, 1, setPaper},
      {"align", "EDGE ITEM ITEM...", "put edges or centres on one line", 3, any, alignItems},
      {"distribute", "AXIS ITEM ITEM ITEM...", "give centres equal distances", 4, any,
       distributeItems},
      {"move", "ITEM... DX DY", "move by millimetres, right and down", 3, any, moveItems},
      {"rotate", "ITEM... DEGREES", "turn clockwise", 2, any, rotateItems},
      {"resize", "ITEM... WIDTH DEPTH", "give a size in millimetres", 3, any, resizeItems},
      {"flip", "AXIS ITEM...", "exchange left and right, or top and bottom", 2, any, flipItems},
      {"label", "ITEM TEXT", "change the text beside an item", 2, 2, labelItem},
      {"lock", "ITEM...", "keep items from being edited", 1, any, lockItems},
      {"unlock", "ITEM...", "let items be edited", 1, any, unlockItems},
      {"layer", "LAYER ITEM...", "put items on a layer", 2, any, putOnLayer},
      {"front", "ITEM...", "in front of all others of the layer", 1, any, bringToFront},
      {"forward", "ITEM...", "one further to the front", 1, any, bringForward},
      {"backward", "ITEM...", "one further to the back", 1, any, sendBackward},
      {"back", "ITEM...", "behind all others of the layer", 1, any, sendToBack},
      {"group", "ITEM ITEM...", "make one group of items", 2, any, groupItems},
      {"ungroup", "ITEM...", "dissolve the groups of items", 1, any, ungroupItems},
      {"duplicate", "ITEM... DX DY", "copies beside the items", 3, any, duplicateItems},
      {"copy", "ITEM... [to FILE]", "remember items, also for another plot", 1, any, copyItems},
      {"paste", "[from FILE] [DX DY]", "add what was copied", 0, 4, pasteItems},
      {"delete", "ITEM...", "remove items and the links to them", 1, any, deleteItems},
      {"undo", "", "take the last edit back", 0, 0, undoEdit},
      {"redo", "", "do it again", 0, 0, redoEdit},
      {"history", "", "the edits that can be undone and done again", 0, 0, listEdits},
      {"preflight", "", "what the plot still lacks or gets wrong", 0, 0, preflightPlot},
      {"save", "[FILE]", "write the plot back, or to another file", 0, 1, savePlot},
      {"save!", "[FILE]", "the same, whatever the file holds by now", 0, 1, savePlotAnyway},
      {"help", "", "this list", 0, 0, printHelp},
      {"quit", "", "end without saving", 0, 0, quitSession},
  };
  return all;
}

std::vector<Passage> editCommandsHelp() {
  std::vector<Row> rows;
  for (const EditCommand& command : editCommands())
    rows.push_back({command.use(), std::string(command.summary)});
  return {{.heading = "Commands, one a line", .rows = rows},
          {.prose =
               "EDGE is one of " + edgeNames() +
               "; AXIS is horizontally or vertically. ITEM is an identifier, a label that only one "
               "item has, or a label and a number: \"MIX 1#2\" is the second of two. LIST is item, "
               "input, mix, equipment, note, layer, group or asset; "
               "NAME is a record's identifier, number or name. PATH is a field of the plot, or an "
               "item's name, a point and a field of it; fields are called as in the document. A "
               "field that may be absent is so with the VALUE none."},
          {.prose = "Words with blanks stand in double quotes, in which \\\" is a quote, \\\\ a "
                    "backslash, \\n a line break, \\r a carriage return and \\t a tab; # begins a "
                    "comment."}};
}

}  // namespace korrin::host
