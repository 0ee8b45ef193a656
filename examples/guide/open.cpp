// Opening the bytes of a document, or saying why not; and saving.

#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>

#include <korrin/korrin.h>

using namespace korrin;

// [open]
KorrinProject openPlot(std::string_view bytes) {
  const DocumentVersions versions = peekVersions(bytes);
  if (versions.minimumReaderVersion > KorrinProject::currentSchemaVersion)
    throw std::runtime_error("This plot needs a newer version of the editor.");

  KorrinProject project = decodeJSON<KorrinProject>(bytes);
  DocumentValidation::validate(project);
  return project;
}
// [/open]

// [save]
std::string bytesToSave(const KorrinProject& project) {
  DocumentValidation::validate(project);
  return encodeJSON(project);
}
// [/save]

void show(const std::string& name, std::string_view bytes) {
  std::cout << name << ": ";
  try {
    const KorrinProject project = openPlot(bytes);
    std::cout << "opened, " << project.items.size() << " items\n";
  } catch (const std::exception& refusal) {
    std::cout << refusal.what() << '\n';
  }
}

std::string replaced(std::string text, std::string_view from, std::string_view to) {
  return text.replace(text.find(from), from.size(), to);
}

int main() {
  const KorrinProject project = KorrinProject::template_(KorrinTemplateID::powerTrio);
  const std::string bytes = bytesToSave(project);
  show("as saved", bytes);
  show("cut off", bytes.substr(0, 40));
  show("of another type", replaced(bytes, R"("showGrid":true)", R"("showGrid":"yes")"));

  KorrinProject twice = project;
  twice.items.push_back(twice.items.front());
  show("an item twice", encodeJSON(twice));

  // A later version may know words that this one does not.
  const std::string newer = replaced(replaced(bytes, R"("microphone")", R"("hologram")"),
                                     R"("minimumReaderVersion":1)", R"("minimumReaderVersion":2)");
  show("of a later version", newer);
  try {
    decodeJSON<KorrinProject>(newer);
  } catch (const DecodingError& error) {
    std::cout << "the same without a look at its version: " << error.what() << '\n';
  }

  const std::string annotated = replaced(bytes, "{", R"({"comment":"for the venue",)");
  std::cout << "an unknown key survives opening and saving: " << std::boolalpha
            << (bytesToSave(openPlot(annotated)) == annotated) << '\n';
}
