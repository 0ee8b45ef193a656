// Opening the bytes of a document, or saying why not; and saving.

#include <iostream>
#include <string>
#include <string_view>

#include <korrin/korrin.h>
#include <korrin/session.h>

using namespace korrin;

// [open]
/// What to tell the user about a document, one case for each thing that can become of it.
struct Answer {
  std::string operator()(const OpenedDocument& opened) const {
    return "opened, " + std::to_string(opened.project.items.size()) + " items" +
           (opened.unknownKeys.count == 0 ? ""
                                          : "; saving drops what this version does not know: " +
                                                opened.unknownKeys.paths.front());
  }
  std::string operator()(const NewerDocument& newer) const {
    return "This plot needs a newer version of the editor (format " +
           std::to_string(newer.versions.minimumReaderVersion) + ").";
  }
  std::string operator()(const UnreadableDocument& unreadable) const {
    return unreadable.error.what();
  }
  std::string operator()(const UnsafeDocument& unsafe) const { return unsafe.error.what(); }
};

std::string answerTo(std::string_view bytes) { return std::visit(Answer(), openDocument(bytes)); }
// [/open]

std::string replaced(std::string text, std::string_view from, std::string_view to) {
  return text.replace(text.find(from), from.size(), to);
}

int main() {
  const KorrinProject project = KorrinProject::template_(KorrinTemplateID::powerTrio);
  const std::string bytes = bytesToSave(project);
  std::cout << "as saved: " << answerTo(bytes) << '\n';
  std::cout << "cut off: " << answerTo(bytes.substr(0, 40)) << '\n';
  std::cout << "of another type: "
            << answerTo(replaced(bytes, R"("showGrid": true)", R"("showGrid": "yes")")) << '\n';

  KorrinProject twice = project;
  twice.items.push_back(twice.items.front());
  std::cout << "an item twice: " << answerTo(encodeJSON(twice)) << '\n';

  // A later version may know words that this one does not.
  const std::string newer =
      replaced(replaced(bytes, R"("microphone")", R"("hologram")"), R"("minimumReaderVersion": 1)",
               R"("minimumReaderVersion": 2)");
  std::cout << "of a later version: " << answerTo(newer) << '\n';
  try {
    decodeJSON<KorrinProject>(newer);
  } catch (const DecodingError& error) {
    std::cout << "the same without a look at its version, line " << error.line() << ": "
              << error.what() << '\n';
  }

  const std::string annotated = replaced(bytes, R"("style": {)", R"("style": { "glow": 3,)");
  std::cout << "with a key of another host: " << answerTo(annotated) << '\n';

  // [save]
  try {
    bytesToSave(twice);
  } catch (const DocumentValidationError& error) {
    std::cout << "not saved: " << error.what() << '\n';
  }
  // [/save]
}
