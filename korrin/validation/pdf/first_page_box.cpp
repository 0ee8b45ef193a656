#include "korrin/validation/pdf/first_page_box.h"

#include <algorithm>

#include "korrin/validation/pdf/cross_references.h"
#include "korrin/validation/pdf/encryption.h"
#include "korrin/validation/pdf/page_tree.h"
#include "korrin/validation/pdf/read_within.h"
#include "korrin/validation/pdf/recovery.h"

namespace korrin {
namespace {

using namespace pdf;

constexpr PdfPage unreadablePage{PdfOutcome::unreadable, 0, 0};
constexpr PdfPage lockedPage{PdfOutcome::locked, 0, 0};
constexpr PdfPage notAPdf{PdfOutcome::notAPdf, 0, 0};

// Where the document begins. A file may have lost its header and begin with the comment of high
// bytes that writers put under it; no other file is a PDF without one.
std::optional<std::size_t> headerOffsetOf(std::string_view file, Budget& budget) {
  const std::size_t header = file.substr(0, limits::headerWindow).find("%PDF-");
  if (header != file.npos) return header;
  const bool isMarkedBinary =
      file.size() > 1 && file[0] == '%' && static_cast<unsigned char>(file[1]) >= 0x80;
  if (!isMarkedBinary || !budget.payFor(file.size(), price::searchedByte)) return std::nullopt;
  if (find(file, "%PDF-") != file.npos) return std::nullopt;
  return 0;
}

// What following the document's own cross-references came to. It is final when they were in good
// order as far as they were followed: then even a document without pages is believed.
struct Attempt {
  PdfPage page;
  bool isFinal;
};

Attempt readByCrossReferences(std::string_view file, std::size_t headerOffset, Budget& budget) {
  CrossReferences references(file, headerOffset, budget);
  if (!references.load()) return {unreadablePage, false};
  Objects objects(file, references, budget);
  const Trailer& trailer = references.trailer();
  const auto lock = unlock(objects, trailer.encrypt, trailer.identifiers);
  PdfPage page = lockedPage;
  if (!std::holds_alternative<Locked>(lock)) {
    if (const auto* decryption = std::get_if<Decryption>(&lock)) objects.decryptWith(*decryption);
    page = firstPage(objects, trailer.root).value_or(unreadablePage);
  }
  return {page, !references.foundDamage() && !objects.foundDamage()};
}

PdfPage readByRecovery(std::string_view file, Budget& budget) {
  RecoveredObjects recovered(file, budget);
  recovered.scan();
  Objects objects(file, recovered, budget);
  const std::vector<Trailer> trailers = recovered.trailers();
  // If any trailer declares encryption, the document counts as encrypted.
  const auto encrypted = std::find_if(trailers.begin(), trailers.end(), [](const Trailer& trailer) {
    return !trailer.encrypt.isNull();
  });
  if (encrypted != trailers.end()) {
    const auto lock = unlock(objects, encrypted->encrypt, encrypted->identifiers);
    const auto* const decryption = std::get_if<Decryption>(&lock);
    if (decryption == nullptr) return lockedPage;
    objects.decryptWith(*decryption);
  }
  recovered.addCompressedObjects(objects);
  for (const Trailer& trailer : trailers)
    if (const auto page = firstPage(objects, trailer.root)) return *page;
  // A trailer that leads nowhere is believed; where there is none, the objects have the word.
  if (!trailers.empty()) return unreadablePage;
  for (const Value& root : recovered.catalogues(objects))
    if (const auto page = firstPage(objects, root)) return *page;
  return unreadablePage;
}

}  // namespace

bool hasPdfHeader(std::span<const std::byte> bytes) noexcept {
  Budget budget(bytes.size());
  return headerOffsetOf(asText(bytes), budget).has_value();
}

PdfPage readFirstPage(std::span<const std::byte> bytes) {
  Budget budget(bytes.size());
  return pdf::readWithin(asText(bytes), budget);
}

PdfPage pdf::readWithin(std::string_view file, Budget& budget) {
  const auto headerOffset = headerOffsetOf(file, budget);
  if (!headerOffset) return notAPdf;
  const Attempt attempt = readByCrossReferences(file, *headerOffset, budget);
  const PdfPage page = attempt.isFinal ? attempt.page : readByRecovery(file, budget);
  return budget.isExhausted() ? unreadablePage : page;
}

}  // namespace korrin
