#pragma once

// A project in which every part of a document occurs: each list holds an element, each optional
// field is present, and no two fields of one record hold the same value.

#include "korrin/model/project.h"

namespace korrin::test {

/// The identifier whose last bytes are `number`.
UUID numberedID(unsigned number);

KorrinProject fullProject();

/// The same with every optional field absent.
KorrinProject sparseProject();

}  // namespace korrin::test
