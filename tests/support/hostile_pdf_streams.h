#pragma once

// The hostile documents whose trick is in their streams: compressed data that costs more than it
// yields, and unpacked data that is held or made again.

#include <vector>

#include "tests/support/hostile_pdfs.h"

namespace korrin::test {

const std::vector<HostilePdf>& hostilePdfStreams();

/// Those that are encrypted, with the empty password, and locked where encryption is not read.
const std::vector<HostilePdf>& encryptedHostilePdfs();

}  // namespace korrin::test
