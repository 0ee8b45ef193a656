#pragma once

// What is typed in a field and not in the plot yet.

namespace korrin::editor {

/// Has the field that is being typed in hand its text to the plot, as leaving it would. To be
/// called before the plot is saved, printed or given up: a shortcut takes no field the keyboard.
void takeTypedText();

}  // namespace korrin::editor
