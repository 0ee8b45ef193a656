// A snapshot written on another thread while editing goes on.

#include <future>
#include <iostream>
#include <string>

#include <korrin/korrin.h>

using namespace korrin;

int main() {
  std::cout << std::boolalpha;
  KorrinProject project = KorrinProject::example();
  const std::string before = encodeJSON(project);
  const UUID first = project.items.front().id;

  // [snapshot]
  std::future<std::string> saved =
      std::async(std::launch::async, [snapshot = project] { return encodeJSON(snapshot); });
  DocumentCommand::deleteItems({first}).apply(project);  // at once; the snapshot does not change
  // [/snapshot]

  const std::string bytes = saved.get();
  std::cout << "the snapshot is the plot before the edit: " << (bytes == before) << '\n'
            << "the plot has changed since: " << (encodeJSON(project) != bytes) << '\n';

  // [reference]
  List<PlotItem> items = project.items;
  PlotItem& item = items.edit(0);
  item.label = "before the copy";
  const List<PlotItem> copy = items;
  items.edit(0).label = "after the copy";  // asks again; `item` would write into the copy as well
  std::cout << "the copy says: " << copy[0].label.str() << '\n';
  // [/reference]
}
