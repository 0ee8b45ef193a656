// Offering templates, and beginning a plot from one.

#include <iostream>

#include <korrin/korrin.h>

using namespace korrin;

int main() {
  // [chooser]
  for (const KorrinTemplateID id : allCases<KorrinTemplateID>())
    std::cout << rawValue(id) << ": " << title(id) << ". " << summary(id) << '\n';
  // [/chooser]

  std::cout << std::boolalpha;
  // [fresh]
  const KorrinProject monday = KorrinProject::template_(KorrinTemplateID::powerTrio);
  const KorrinProject friday = KorrinProject::template_(KorrinTemplateID::powerTrio);
  std::cout << "made twice, an item keeps its identifier: "
            << (monday.items[0].id == friday.items[0].id) << '\n';

  const KorrinTemplate& shown = KorrinTemplate::all().front();
  std::cout << "taken from the list twice, it does: "
            << (shown.project.items[0].id == KorrinTemplate::all().front().project.items[0].id)
            << '\n';
  // [/fresh]
}
