#pragma once

// The cross-references of an undamaged document: tables, which are read in place at each look-up,
// and streams, whose unpacked rows are kept. Newer sections hide older ones.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "korrin/validation/pdf/objects.h"
#include "korrin/validation/pdf/scanner.h"
#include "korrin/validation/pdf/value.h"

namespace korrin::pdf {

/// What a trailer says, as far as it matters here.
struct Trailer {
  Value root;
  Value encrypt;
  Value identifiers;
};

class CrossReferences : public ObjectTable {
 public:
  /// `headerOffset` is where the document's header begins in `file`.
  CrossReferences(std::string_view file, std::size_t headerOffset, Budget& budget)
      : file_(file), headerOffset_(headerOffset), budget_(&budget) {}

  /// Reads all sections, from the newest on. False when the newest cannot be read.
  bool load();

  ObjectPlace find(std::uint32_t number) override;

  /// Of each entry, what the newest section says that has it.
  const Trailer& trailer() const { return trailer_; }

  /// Whether a section was not as it must be.
  bool foundDamage() const { return damaged_; }

 private:
  struct TableSection {
    std::size_t subsections;  ///< Where the first subsection begins.
    bool hasHiddenObjects;    ///< The next section is a stream whose objects this one calls free.
  };
  struct StreamSection {
    Bytes rows;
    std::array<std::size_t, 3> widths;   ///< Bytes of the three fields of a row.
    std::optional<std::size_t> indexes;  ///< Where the ranges of object numbers begin.
  };
  using Section = std::variant<TableSection, StreamSection>;

  struct Subsection {
    std::uint64_t first;
    std::uint64_t count;
    std::size_t entries;  ///< Where they begin,
    std::size_t stride;   ///< and their distance.
  };

  /// Where the next older sections are.
  struct Older {
    std::optional<std::size_t> hidden;
    std::optional<std::size_t> previous;
  };

  std::optional<std::size_t> startOffset();
  bool beginsSection(std::size_t offset);
  std::optional<Older> readSection(std::size_t offset);
  std::optional<Older> readTable(Scanner& scanner);
  std::optional<Older> readStream(Scanner& scanner);
  std::optional<Subsection> takeSubsection(Scanner& scanner);
  std::optional<std::array<std::size_t, 3>> takeWidths(const Value& widths);
  void note(const Trailer& trailer);
  std::optional<std::size_t> shifted(const Value& offset);

  /// Nothing when the section does not list the object.
  std::optional<ObjectPlace> find(const TableSection& section, std::uint32_t number);
  std::optional<ObjectPlace> find(const StreamSection& section, std::uint32_t number);

  std::string_view file_;
  std::size_t headerOffset_;
  Budget* budget_;
  std::size_t shift_ = 0;  ///< Added to every offset that the file states.
  std::vector<Section> sections_;
  std::vector<std::size_t> visited_;
  Trailer trailer_;
  bool damaged_ = false;
};

}  // namespace korrin::pdf
