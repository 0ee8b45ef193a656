#include "korrin/foundation/enumeration.h"

#include <ranges>

#include <gtest/gtest.h>

namespace korrin {

enum class Season { spring, summer, autumn };
enum class Secret { one, two };
enum class Untabled { one };
enum class Disordered { first, second };

template <>
struct CaseTable<Season> {
  static constexpr std::array cases = {Case{Season::spring, "spring"}, Case{Season::summer, "hot"},
                                       Case{Season::autumn, "autumn"}};
};
template <>
struct CaseTable<Secret> {
  static constexpr bool isHidden = true;
  static constexpr std::array cases = {Case{Secret::one, "one"}, Case{Secret::two, "two"}};
};
template <>
struct CaseTable<Disordered> {
  static constexpr std::array cases = {Case{Disordered::second, "second"},
                                       Case{Disordered::first, "first"}};
};

namespace {

template <class E>
constexpr bool offersAllCases = requires {
  allCases<E>();
};
template <class E>
constexpr bool offersRawValue = requires(E value) {
  rawValue(value);
  fromRawValue<E>("");
};

TEST(Enumeration, HasATextForEveryCaseAndFindsTheCaseByIt) {
  EXPECT_EQ(rawValue(Season::spring), "spring");
  EXPECT_EQ(rawValue(Season::summer), "hot");
  EXPECT_EQ(fromRawValue<Season>("hot"), Season::summer);
  static_assert(rawValue(Season::autumn) == "autumn");
  static_assert(fromRawValue<Season>("autumn") == Season::autumn);
}

TEST(Enumeration, FindsNoCaseByAnyOtherText) {
  for (const std::string_view text : {"", "summer", "Hot", "HOT", " hot", "hot ", "ho", "hots"})
    EXPECT_FALSE(fromRawValue<Season>(text).has_value()) << text;
  EXPECT_FALSE(fromRawValue<Season>(std::string_view("hot\0", 4)).has_value());
}

TEST(Enumeration, ListsItsCasesInDeclarationOrder) {
  constexpr auto all = allCases<Season>();
  static_assert(std::ranges::sized_range<decltype(all)>);
  static_assert(std::same_as<std::ranges::range_value_t<decltype(all)>, Season>);
  EXPECT_TRUE(std::ranges::equal(all, std::array{Season::spring, Season::summer, Season::autumn}));
}

TEST(Enumeration, KeepsAHiddenListToItself) {
  EXPECT_TRUE(offersAllCases<Season>);
  EXPECT_FALSE(offersAllCases<Secret>);
  EXPECT_TRUE(offersRawValue<Secret>);
  EXPECT_EQ(fromRawValue<Secret>("two"), Secret::two);
}

TEST(Enumeration, OffersNothingWithoutATable) {
  EXPECT_FALSE(offersAllCases<Untabled>);
  EXPECT_FALSE(offersRawValue<Untabled>);
  EXPECT_FALSE(offersAllCases<int>);
}

TEST(Enumeration, NoticesATableThatIsNotInDeclarationOrder) {
  EXPECT_TRUE(casesStandInOrder<Season>);
  EXPECT_FALSE(casesStandInOrder<Disordered>);
}

TEST(EnumerationDeathTest, AbortsForAValueThatIsNoCase) {
  EXPECT_DEATH((void)rawValue(static_cast<Season>(3)), "holds a value that is no case");
  EXPECT_DEATH((void)rawValue(static_cast<Season>(-1)), "holds a value that is no case");
}

}  // namespace
}  // namespace korrin
