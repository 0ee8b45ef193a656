// The library as it is built without its cryptographic part.

#include <string>

#include <gtest/gtest.h>

#include "tests/support/pdf_builder.h"
#include "tests/support/pdf_matchers.h"

namespace korrin {
namespace {

using namespace test;

TEST(Encryption, LocksTheDocumentWhereItIsLeftOut) {
  PdfBuilder pdf = wholeTree();
  EXPECT_EQ(pageOf(PdfBuilder(pdf).table("/Root 1 0 R/Encrypt<</Filter/Standard>>").file()),
            locked);
  EXPECT_EQ(pageOf(PdfBuilder(pdf).table("/Root 1 0 R/Encrypt 9 0 R").file()), locked);
  EXPECT_EQ(pageOf(PdfBuilder(pdf).table("/Root 1 0 R").file()), box(3, 3));
}

}  // namespace
}  // namespace korrin
