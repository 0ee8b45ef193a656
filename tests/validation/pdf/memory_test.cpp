#include <new>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/heap_meter.h"
#include "tests/support/hostile_pdf_streams.h"
#include "tests/support/hostile_pdfs.h"
#include "tests/support/pdf_matchers.h"

namespace korrin {
namespace {

using namespace test;

// zlib's state and window are not allocated through operator new.
constexpr std::size_t zlibItself = std::size_t{64} << 10;
constexpr std::size_t promised = (std::size_t{32} << 20) - zlibItself;

// Large enough for each trick to meet its limit.
constexpr std::size_t documentSize = std::size_t{5} << 20;

class Memory : public testing::TestWithParam<HostilePdf> {};

TEST_P(Memory, StaysBelowThePromise) {
  const std::string file = GetParam().make(documentSize);
  EXPECT_LE(peakHeapOf([&] { pageOf(file); }), promised);
}

// Where encryption is not read, they are refused early.
INSTANTIATE_TEST_SUITE_P(Encrypted, Memory, testing::ValuesIn(encryptedHostilePdfs()),
                         [](const auto& row) { return std::string(row.param.name); });
INSTANTIATE_TEST_SUITE_P(Stream, Memory, testing::ValuesIn(hostilePdfStreams()),
                         [](const auto& row) { return std::string(row.param.name); });
INSTANTIATE_TEST_SUITE_P(Trick, Memory, testing::ValuesIn(hostilePdfs()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(HeapMeter, SeesThePeakAndNotTheEnd) {
  const std::size_t peak = peakHeapOf([] {
    // Called by name, since a new expression may be left out when nothing reads the memory.
    void* const large = ::operator new(3'000'000);
    ::operator delete(large);
  });
  EXPECT_GE(peak, 3'000'000u);
  EXPECT_LT(peak, 3'100'000u);
  EXPECT_EQ(peakHeapOf([] {}), 0u);
}

}  // namespace
}  // namespace korrin
