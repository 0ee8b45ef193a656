// What can go wrong, and what the user is told.

#include <iostream>
#include <limits>
#include <string>
#include <string_view>

#include <korrin/korrin.h>

using namespace korrin;

// [tell]
std::string reasonNotToOpen(std::string_view bytes) {
  try {
    DocumentValidation::validate(decodeJSON<KorrinProject>(bytes));
    return "";
  } catch (const DecodingError& error) {
    if (error.kind() == DecodingError::Kind::dataCorrupted && error.keyPath().empty())
      return std::string("This is not a plot, or it is damaged. ") + error.what();
    return std::string("This plot was written wrongly. ") + error.what();
  } catch (const DocumentValidationError& error) {
    return error.what();
  }
}
// [/tell]

int main() {
  const KorrinProject plot = KorrinProject::template_(KorrinTemplateID::powerTrio);
  std::cout << reasonNotToOpen("PK\3\4") << '\n'
            << reasonNotToOpen(R"({"schemaVersion":1})") << '\n';

  KorrinProject vast = plot;
  vast.stage.size.width = 2 * DocumentValidation::maximumDimension;
  std::cout << reasonNotToOpen(encodeJSON(vast)) << '\n';

  // [nothing]
  KorrinProject project = plot;
  const CommandResult done = DocumentCommand::deleteItems({UUID::random()}).apply(project);
  std::cout << "items deleted: " << plot.items.size() - project.items.size()
            << ", identifiers in the change set: " << done.changes.changedItemIDs.size() << '\n';
  // [/nothing]

  // [strings]
  KorrinProject odd = plot;
  odd.items.edit(0).riserHeightMillimeters = std::numeric_limits<double>::infinity();
  EncodingOptions lenient;
  lenient.nonFinite = NonFinite::strings;
  std::cout << "kept for inspection: " << std::boolalpha
            << (encodeJSON(odd, lenient).find("\"Infinity\"") != std::string::npos) << '\n';
  // [/strings]
}
