#pragma once

// What there is to say about a command. The command line, its help, its manual page and its
// completion are all made of this one description.

#include <functional>
#include <string>
#include <vector>

#include "terminal/passages.h"

namespace korrin::host {

/// An option, or an argument that stands without one.
struct Parameter {
  /// With their dashes, the short one first; of an argument its one name, such as "FILE".
  std::vector<std::string> names = {};
  std::string valueName = {};  ///< Such as "FILE"; empty for a flag and for an argument.
  std::string text = {};       ///< What it is for.
  /// The words to choose from, said behind the text and offered by completion; empty for any.
  std::vector<std::string> choices = {};
  std::vector<std::string> excludes = {};  ///< Options that must not be given as well.
  bool isRequired = false;
  bool isRepeatable = false;
  bool isInput = false;   ///< Whether it names files to read, of which one may be "-".
  bool isHidden = false;  ///< Whether nothing is said of it.
  /// Takes one word of the command line; nothing for a flag. Throws UsageError for a word that does
  /// not fit.
  std::function<void(const std::string& word)> take = {};

  bool isArgument() const;
  bool isFlag() const { return !isArgument() && valueName.empty(); }
  /// Whether a word of it names a file or a folder.
  bool takesFile() const;
  /// "-o, --output FILE", "[FILE...]".
  std::string use() const;
  /// The text with the words to choose from and what it must not be given with.
  std::string description() const;
};

/// A command: the program itself or one of its subcommands.
struct CommandPage {
  std::string name = {};                      ///< One word; of the program, "korrin".
  std::string program = {};                   ///< What the name stands behind; empty for none.
  std::string summary = {};                   ///< One sentence with its full stop.
  std::vector<Parameter> arguments = {};      ///< In the order in which they are given.
  std::vector<Parameter> options = {};        ///< In the order in which they are shown.
  std::vector<CommandPage> subcommands = {};  ///< Empty for a subcommand.
  std::vector<Passage> passages = {};         ///< Everything else, in its order.

  /// "korrin check".
  std::string fullName() const;
  /// "korrin check [OPTIONS] FILE...".
  std::string use() const;
};

/// What every page of a command that reads plots ends with.
Passage exitStatuses();

/// Of options with choices.
Passage firstChoiceIsDefault();

}  // namespace korrin::host
