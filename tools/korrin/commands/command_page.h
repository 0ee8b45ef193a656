#pragma once

// What there is to say about a command, taken from the tree of the command line's parser once, so
// that help, manual and completion say the same, whatever commands there are.

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace korrin::host {

/// An option, or an argument that stands without one.
struct Parameter {
  /// With their dashes, the short one first; of an argument its one name, such as "FILE...".
  std::vector<std::string> names;
  std::string valueName;             ///< Such as "FILE"; empty for a flag and for an argument.
  std::string text;                  ///< The description.
  std::vector<std::string> choices;  ///< The words to choose from, if the description ends in them.

  /// "-o, --output FILE".
  std::string use() const;
};

/// A word or phrase and what it means.
struct Row {
  std::string term;
  std::string text;
};

/// A paragraph of prose, or rows under a heading.
struct Passage {
  std::string heading;    ///< Without its colon; empty for prose.
  std::vector<Row> rows;  ///< Empty for prose.
  std::string prose;      ///< On one line; empty under a heading.
};

/// A command: the program itself or one of its subcommands.
struct CommandPage {
  std::string name;                      ///< Such as "korrin check".
  std::string summary;                   ///< One line.
  std::vector<Parameter> arguments;      ///< In the order in which they are given.
  std::vector<Parameter> options;        ///< In the order in which they were added; no hidden ones.
  std::vector<CommandPage> subcommands;  ///< Empty for a subcommand.
  std::vector<Passage> passages;         ///< Everything else, in its order.

  /// The last word of the name.
  std::string word() const;
  /// "korrin check [OPTIONS] FILE...".
  std::string use() const;
};

/// The page of a command and of everything below it. In the command's footer blank lines and
/// headings, lines that end in a colon over lines indented by two blanks, part passages; in an
/// indented line two blanks or more part a term from its text.
CommandPage pageOf(const CLI::App& command);

}  // namespace korrin::host
