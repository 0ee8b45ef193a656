// Has libFuzzer change documents as JSON, and mostly so that they still decode: of changes of bytes
// hardly one in a hundred gets past the syntax and the types.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

#include "fuzz/json_mutation.h"
#include "fuzz/seed_documents.h"

// Part of libFuzzer: changes bytes as it would by itself.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size,
                                        std::size_t maximumSize);

namespace korrin::fuzz {
namespace {

// A change of the document, or of the one that its kind begins with when it does not decode itself,
// drawn again a few times until it decodes.
std::string changed(std::string document, std::minstd_rand& random) {
  const DocumentInput input = documentInput(document);
  if (random() % 4 != 0 && !decodes(input)) document = seedDocument(input.kind, input.options);
  if (random() % 16 == 0) document[random() % headerLength] = static_cast<char>(random() % 64);
  const std::string header = document.substr(0, headerLength);
  std::string candidate;
  for (int attempts = 8; attempts > 0; --attempts) {
    std::string text = document.substr(headerLength);
    for (auto count = 1 + random() % 3; count > 0; --count)
      text = mutatedJSON(std::move(text), random);
    candidate = header + text;
    if (decodes(documentInput(candidate))) break;
  }
  return candidate;
}

}  // namespace
}  // namespace korrin::fuzz

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maximumSize, unsigned seed) {
  std::minstd_rand random(seed);
  if (size < korrin::fuzz::headerLength || random() % 8 == 0)
    return LLVMFuzzerMutate(data, size, maximumSize);
  const std::string document =
      korrin::fuzz::changed({reinterpret_cast<const char*>(data), size}, random);
  if (document.size() > maximumSize) return LLVMFuzzerMutate(data, size, maximumSize);
  std::copy(document.begin(), document.end(), data);
  return document.size();
}
