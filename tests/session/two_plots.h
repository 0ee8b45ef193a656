#pragma once

// Two plots that a test tells apart by their title, and what their files hold.

#include <string>

#include "korrin/session/document_file.h"

#include "tests/support/sample_project.h"

namespace korrin::test {

inline KorrinProject titled(const std::string& title) {
  KorrinProject project = sampleProject();
  project.metadata.title = title;
  return project;
}

inline const KorrinProject first = titled("first");
inline const KorrinProject second = titled("second");
inline const std::string firstBytes = bytesToSave(first);
inline const std::string secondBytes = bytesToSave(second);

}  // namespace korrin::test
