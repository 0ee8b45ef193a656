#pragma once

// Explanations for a person: paragraphs, and rows of terms under a heading.

#include <string>
#include <vector>

namespace korrin::host {

/// A word or phrase and what it means.
struct Row {
  std::string term;
  std::string text;
};

/// A paragraph of prose, or rows under a heading.
struct Passage {
  std::string heading = {};    ///< Without its colon; empty for prose.
  std::vector<Row> rows = {};  ///< Empty for prose.
  std::string prose = {};      ///< On one line; empty under a heading.
};

/// The passage in lines of at most 80 columns, its line breaks included.
std::string textOf(const Passage& passage);

/// The passages with an empty line between them.
std::string textOf(const std::vector<Passage>& passages);

}  // namespace korrin::host
