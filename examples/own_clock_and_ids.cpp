// A host with its own clock and its own identifiers: for tests that must come out the same every
// time, for a server that numbers what it makes, for a clock that a time server sets.

#include <chrono>
#include <cstdint>
#include <iostream>
#include <stdexcept>
#include <string>

#include <korrin/korrin.h>

using namespace korrin;

namespace {

// Time passes by one second with every look at the clock, and identifiers count from 1.
class Rehearsal {
 public:
  // What it hands out refers to this rehearsal and must not outlive it.
  Environment environment() {
    return {.now = [this] { return now_ += std::chrono::seconds(1); },
            .makeUUID = [this] { return next(); }};
  }
  Instant now() const { return now_; }

  static UUID number(std::uint16_t count) {
    UUID::Bytes bytes{};
    bytes[14] = static_cast<std::uint8_t>(count >> 8);
    bytes[15] = static_cast<std::uint8_t>(count & 0xFF);
    return UUID(bytes);
  }

 private:
  UUID next() { return number(++made_); }

  Instant now_ = std::chrono::sys_days{std::chrono::July / 18 / 2026} + std::chrono::hours(18);
  std::uint16_t made_ = 0;
};

void require(bool holds, const std::string& expectation) {
  if (!holds) throw std::logic_error("not so: " + expectation);
  std::cout << expectation << '\n';
}

std::string plotOfARehearsal() {
  Rehearsal rehearsal;
  return encodeJSON(
      KorrinProject::template_(KorrinTemplateID::fivePieceBand, rehearsal.environment()));
}

}  // namespace

int main() {
  require(plotOfARehearsal() == plotOfARehearsal(), "two rehearsals make the same document");

  Rehearsal rehearsal;
  const Environment environment = rehearsal.environment();
  KorrinProject project = KorrinProject::newDocument(environment);
  require(project.layers.front().id == Rehearsal::number(1), "the first identifier is the layer's");
  require(project.metadata.modifiedAt == rehearsal.now(), "the clock was last read for modifiedAt");

  DocumentCommand::replaceNotes({}).apply(project, environment);
  require(project.metadata.modifiedAt == rehearsal.now(), "an edit reads the same clock");

  // Half a host's own, half the system's.
  Environment failing = Environment::system();
  failing.now = []() -> Instant { throw std::runtime_error("the time server does not answer"); };
  const KorrinProject before = project;
  try {
    DocumentCommand::replaceInputs({}).apply(project, failing);
    require(false, "what the clock throws is passed on");
  } catch (const std::runtime_error& error) {
    require(project == before, std::string(error.what()) + ", and nothing was edited");
  }
}
