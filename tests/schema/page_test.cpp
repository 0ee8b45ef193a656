#include "schema/page.h"

#include <gtest/gtest.h>

namespace korrin::host {
namespace {

constexpr auto markdown = R"(Before any heading.

# The `only` page

| not | rows |
|---|---|
| `a` | one |

This paragraph comes too late.

## A record

Opens on
two lines.

And goes on.

| key | meaning |
|---|---|
| `x` | to the right |
| `y` (new) | downward |

| other titles | of another table |
|---|---|
| plain words | so |

```
# no heading
| no | row |
```

## Code first

```
said in code
```
Said after code.
)";

TEST(Page, HasTheTitleOfItsFirstHeading) { EXPECT_EQ(Page(markdown).title(), "The only page"); }

TEST(Page, OpensASectionWithTheParagraphUnderItsHeading) {
  const Page page(markdown);
  ASSERT_NE(page.opening("A record"), nullptr);
  EXPECT_EQ(*page.opening("A record"), "Opens on two lines.");
  EXPECT_EQ(page.opening("The only page"), nullptr);
  EXPECT_EQ(page.opening("Another record"), nullptr);
}

TEST(Page, FindsARowByItsFirstCellOrTheCodeThatBeginsIt) {
  const Page page(markdown);
  const auto row = [&page](std::string_view name) {
    const PageRow* found = page.row("A record", name);
    return found == nullptr ? PageRow{} : *found;
  };
  EXPECT_EQ(row("x"), (PageRow{"`x`", "to the right"}));
  EXPECT_EQ(row("y"), (PageRow{"`y` (new)", "downward"}));
  EXPECT_EQ(row("plain words"), (PageRow{"plain words", "so"}));
  EXPECT_EQ(page.row("A record", "a"), nullptr);
  EXPECT_EQ(page.row("A record", "key"), nullptr);
  EXPECT_EQ(page.row("Another record", "x"), nullptr);
}

TEST(Page, TakesNeitherHeadingsNorRowsFromCode) {
  const Page page(markdown);
  EXPECT_EQ(page.sections().size(), 3u);
  EXPECT_EQ(page.sections().at("A record").rows.size(), 3u);
  EXPECT_TRUE(page.sections().at("Code first").rows.empty());
}

}  // namespace
}  // namespace korrin::host
