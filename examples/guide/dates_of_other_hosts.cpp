// Documents of hosts that write their dates as numbers.

#include <chrono>
#include <iostream>
#include <string>

#include <korrin/korrin.h>

using namespace korrin;

int main() {
  std::cout << std::boolalpha;
  KorrinProject project = KorrinProject::template_(KorrinTemplateID::powerTrio);
  project.metadata.eventDate = std::chrono::sys_days{std::chrono::July / 18 / 2026} +
                               std::chrono::hours(18) + std::chrono::nanoseconds(1);

  // [strategies]
  for (const DateStrategy dates :
       {DateStrategy::iso8601, DateStrategy::secondsSince1970, DateStrategy::millisecondsSince1970,
        DateStrategy::secondsSinceReferenceDate}) {
    EncodingOptions writing;
    writing.dates = dates;
    DecodingOptions reading;
    reading.dates = dates;
    const std::string bytes = encodeJSON(project.metadata, writing);
    const std::size_t start = bytes.find("\"eventDate\"");
    std::cout << bytes.substr(start, bytes.find(',', start) - start) << ", read back exactly: "
              << (decodeJSON<ProjectMetadata>(bytes, reading) == project.metadata) << '\n';
  }
  // [/strategies]

  EncodingOptions theirs;
  theirs.dates = DateStrategy::secondsSinceReferenceDate;
  const std::string bytes = encodeJSON(project, theirs);
  // [unannounced]
  try {
    decodeJSON<KorrinProject>(bytes);
  } catch (const DecodingError& error) {
    std::cout << "not announced: " << error.what() << '\n';
  }
  // [/unannounced]
}
