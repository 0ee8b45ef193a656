// What changed since the last revision, and two people's edits in one plot.

#include <iostream>
#include <string>

#include <korrin/korrin.h>
#include <korrin/review.h>

using namespace korrin;

// [changes]
std::string changesSince(const KorrinProject& before, const KorrinProject& after) {
  const DifferenceSentences sentenceFor(before, after);
  std::string text;
  for (const Difference& difference : differences(before, after))
    text += sentenceFor(difference) + "\n";
  return text;
}
// [/changes]

// [merge]
KorrinProject broughtTogether(const KorrinProject& base, const KorrinProject& ours,
                              const KorrinProject& theirs) {
  MergeResult result = merge(base, ours, theirs);
  for (const MergeConflict& conflict : result.conflicts)
    std::cout << "look at " << conflict.list << " " << conflict.field << ": " << conflict.ours
              << " stands, they have " << conflict.theirs << "\n";
  return std::move(result.project);
}
// [/merge]

int main() {
  const KorrinProject monday = KorrinProject::template_(KorrinTemplateID::powerTrio);

  KorrinProject anna = monday;
  anna.inputs.edit(0).microphoneOrDI = "Beta 91A";
  anna.items.edit(1).position.x += 400;
  anna.notes.push_back(
      {.id = UUID::random(), .title = "Load-in", .body = "Dock 3, from 10 o'clock."});

  KorrinProject ben = monday;
  ben.inputs.edit(0).microphoneOrDI = "D6";
  ben.inputs.edit(0).stand = "Low boom";
  ben.inputs.edit(1).phantomPower = !ben.inputs[1].phantomPower;

  std::cout << "Anna:\n" << changesSince(monday, anna);
  std::cout << "Ben:\n" << changesSince(monday, ben);
  const KorrinProject friday = broughtTogether(monday, anna, ben);
  std::cout << "Friday:\n" << changesSince(monday, friday);
}
