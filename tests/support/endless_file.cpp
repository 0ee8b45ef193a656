#include "tests/support/endless_file.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#include <sys/mman.h>

namespace korrin::test {
namespace {

// As long as the machine's addresses allow.
constexpr std::size_t length = std::size_t{1} << (sizeof(std::size_t) > 4 ? 34 : 30);
constexpr std::size_t readableLength = std::size_t{1} << 20;

void require(bool succeeded) {
  if (!succeeded) throw std::system_error(errno, std::generic_category());
}

}  // namespace

EndlessFile::EndlessFile(const Bytes& beginning, const Bytes& part) {
  // Nothing of it is readable at first, and so nothing of it takes memory.
  void* addresses =
      mmap(nullptr, length, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  require(addresses != MAP_FAILED);
  bytes_ = {static_cast<std::byte*>(addresses), length};
  require(mprotect(addresses, readableLength, PROT_READ | PROT_WRITE) == 0);
  std::copy(beginning.begin(), beginning.end(), bytes_.begin());
  // Filled to its last byte: were there zeros at the end, a reader might stop at those.
  for (std::size_t i = beginning.size(); i < readableLength; ++i)
    bytes_[i] = part[(i - beginning.size()) % part.size()];
}

EndlessFile::~EndlessFile() { munmap(bytes_.data(), bytes_.size()); }

}  // namespace korrin::test
