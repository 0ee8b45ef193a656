// Random sequences of changes, each list compared with a std::vector that undergoes the same, and
// all copies kept on the way compared with what they were when taken. Whatever the changes, a
// search finds every element.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/foundation/list.h"
#include "korrin/foundation/uuid.h"

namespace korrin {
namespace {

struct Part {
  UUID id;
  std::string label;
  double x;
  List<std::string> notes;
  friend bool operator==(const Part&, const Part&) = default;
};

struct Link {
  std::optional<UUID> to;
  friend bool operator==(const Link&, const Link&) = default;
};

struct Bundle {
  List<UUID> members;
  friend bool operator==(const Bundle&, const Bundle&) = default;
};

}  // namespace

template <>
inline constexpr auto searchKey<Part> = &Part::id;
template <>
inline constexpr auto searchKey<Link> = &Link::to;
template <>
inline constexpr auto searchKey<Bundle> = &Bundle::members;

namespace {

template <class T>
T elementOf(std::uint64_t n);

template <>
int elementOf<int>(std::uint64_t n) {
  return static_cast<int>(n % 1000);
}

template <>
std::string elementOf<std::string>(std::uint64_t n) {
  return std::string(static_cast<std::size_t>(n % 40), 'a') + std::to_string(n % 1000);
}

template <>
UUID elementOf<UUID>(std::uint64_t n) {
  UUID::Bytes bytes{};
  bytes[0] = static_cast<std::uint8_t>(n);
  bytes[15] = static_cast<std::uint8_t>(n >> 8);
  return UUID(bytes);
}

template <>
Part elementOf<Part>(std::uint64_t n) {
  return {.id = elementOf<UUID>(n),
          .label = elementOf<std::string>(n),
          .x = static_cast<double>(n % 7),
          .notes = {elementOf<std::string>(n + 1)}};
}

template <>
Link elementOf<Link>(std::uint64_t n) {
  return {.to = n % 3 == 0 ? std::nullopt : std::optional(elementOf<UUID>(n))};
}

template <>
Bundle elementOf<Bundle>(std::uint64_t n) {
  Bundle bundle{.members = {}};
  for (std::uint64_t i = 0; i < n % 5; ++i) bundle.members.push_back(elementOf<UUID>(n + i));
  return bundle;
}

// A number to choose elements by.
std::size_t keyOf(int element) { return static_cast<std::size_t>(element); }
std::size_t keyOf(const std::string& element) {
  return element.size() + static_cast<std::size_t>(element.back() - '0') * 40;
}
std::size_t keyOf(const UUID& element) { return element.bytes()[0]; }
std::size_t keyOf(const Part& element) { return keyOf(element.id); }
std::size_t keyOf(const Link& element) { return element.to ? keyOf(*element.to) : 0; }
std::size_t keyOf(const Bundle& element) { return element.members.size(); }

// The identifiers under which an element must be found.
template <class T>
List<UUID> idsOf(const T&) {
  return {};
}
List<UUID> idsOf(const Part& element) { return {element.id}; }
List<UUID> idsOf(const Link& element) {
  return element.to ? List<UUID>{*element.to} : List<UUID>();
}
List<UUID> idsOf(const Bundle& element) { return element.members; }

/// A list with the vector it must equal.
template <class T>
struct Pair {
  List<T> list;
  std::vector<T> model;

  bool agrees() const {
    return list.size() == model.size() &&
           std::equal(list.begin(), list.end(), model.begin(), model.end());
  }

  /// Whether a search for any identifier of element `i` comes upon it.
  bool finds(std::size_t i) const {
    return std::ranges::all_of(idsOf(model[i]), [&](const UUID& id) {
      bool isFound = false;
      if constexpr (Searchable<T>)
        list.forEachCandidate(std::vector{id},
                              [&](std::size_t place, const T&) { isFound |= place == i; });
      return isFound;
    });
  }
  bool findsAll() const {
    for (std::size_t i = 0; i < model.size(); ++i)
      if (!finds(i)) return false;
    return true;
  }
};

template <class T>
class Changer {
 public:
  explicit Changer(std::uint64_t seed) : random_(seed) {}

  std::size_t below(std::size_t bound) { return static_cast<std::size_t>(random_() % bound); }

  /// One random change. `growth` out of 10 changes tend to make the list longer.
  void change(Pair<T>& pair, std::uint64_t growth) {
    if (below(10) < growth)
      grow(pair);
    else if (!pair.model.empty())
      shrinkOrEdit(pair);
  }

  /// Takes several references, all over the list or near one another, and only then writes through
  /// them, in any order and more than once.
  void writeThroughReferences(Pair<T>& pair) {
    auto& [list, model] = pair;
    std::vector<std::pair<T*, std::size_t>> held;
    if (below(2) == 0) {
      held.emplace_back(&list.emplace_back(element()), model.size());
      model.push_back(*held.front().first);
    }
    const std::size_t from = below(model.size());
    const bool isNear = below(2) == 0;
    for (std::uint64_t i = below(8); i < 9; ++i) {
      const std::size_t at = isNear ? (from + below(9)) % model.size() : below(model.size());
      held.emplace_back(&list.edit(at), at);
    }
    for (int i = 0; i < 12; ++i) {
      const auto& [reference, at] = held[below(held.size())];
      const auto& [other, otherAt] = held[below(held.size())];
      if (below(2) == 0) {
        *reference = model[at] = element();
      } else if (at != otherAt) {
        std::swap(*reference, *other);
        std::swap(model[at], model[otherAt]);
      }
    }
    for (const auto& [reference, at] : held) {
      EXPECT_EQ(*reference, model[at]);
      EXPECT_TRUE(pair.finds(at));
    }
  }

 private:
  using Offset = std::ptrdiff_t;

  T element() { return elementOf<T>(below(1000)); }

  void grow(Pair<T>& pair) {
    auto& [list, model] = pair;
    switch (below(8)) {
      case 0: {
        const std::uint64_t count = below(100);
        for (std::uint64_t i = 0; i < count; ++i) {
          list.push_back(elementOf<T>(i));
          model.push_back(elementOf<T>(i));
        }
        break;
      }
      case 1: {
        const T fresh = element();
        EXPECT_EQ(list.emplace_back(fresh), fresh);
        list.emplace_back(element()) = fresh;
        model.insert(model.end(), 2, fresh);
        break;
      }
      case 2:
        list.reserve(below(400));
        break;
      case 3:
        if (!model.empty()) {
          const std::size_t from = below(model.size());
          list.push_back(list[from]);
          model.push_back(T(model[from]));
        }
        break;
      default: {  // a run of inserts at one place, at the same index or ascending
        std::size_t at = below(model.size() + 1);
        const bool ascending = below(2) == 0;
        const std::uint64_t count = 1 + (below(4) == 0 ? below(100) : 0);
        for (std::uint64_t i = 0; i < count; ++i) {
          const T fresh = element();
          list.insert(at, fresh);
          model.insert(model.begin() + static_cast<Offset>(at), fresh);
          if (ascending) ++at;
        }
      }
    }
  }

  void shrinkOrEdit(Pair<T>& pair) {
    auto& [list, model] = pair;
    const std::size_t at = below(model.size());
    switch (below(80)) {
      case 0:
      case 10:
      case 11:
      case 12: {
        const std::size_t outOf = 2 + below(300);
        const std::size_t chosen = below(outOf);
        const auto predicate = [=](const T& element) { return keyOf(element) % outOf == chosen; };
        EXPECT_EQ(list.eraseIf(predicate), std::erase_if(model, predicate));
        break;
      }
      case 1: {  // all but one neighbourhood
        std::size_t i = 0;
        std::size_t j = 0;
        const auto isFar = [at](std::size_t place) { return place + 50 < at || place > at + 50; };
        list.eraseIf([&](const T&) { return isFar(i++); });
        std::erase_if(model, [&](const T&) { return isFar(j++); });
        break;
      }
      case 2: {
        const std::size_t to = at + below(model.size() - at + 1);
        list.assign(list.begin() + static_cast<Offset>(at), list.begin() + static_cast<Offset>(to));
        model = std::vector<T>(model.begin() + static_cast<Offset>(at),
                               model.begin() + static_cast<Offset>(to));
        break;
      }
      case 3:
        list.assign(below(10), list[at]);
        model.assign(list.size(), T(model[at]));
        break;
      case 4:
        if (below(10) == 0) {
          list.clear();
          model.clear();
        }
        break;
      case 5:
      case 6:
      case 7:
      case 8:
      case 9: {  // a run of erases at one place
        const std::size_t count = std::min<std::size_t>(model.size() - at, 1 + below(70));
        for (std::size_t i = 0; i < count; ++i) list.erase(at);
        const auto first = model.begin() + static_cast<Offset>(at);
        model.erase(first, first + static_cast<Offset>(count));
        break;
      }
      case 13:
      case 14:
      case 15: {
        const std::size_t other = below(model.size());
        list.swap(at, other);
        std::swap(model[at], model[other]);
        break;
      }
      case 16:
      case 17:
      case 18: {
        const std::size_t to = below(model.size());
        list.move(at, to);
        const T moved = model[at];
        model.erase(model.begin() + static_cast<Offset>(at));
        model.insert(model.begin() + static_cast<Offset>(to), moved);
        break;
      }
      case 19:
      case 20:
      case 21:
      case 22:
      case 23:
      case 24:
        writeThroughReferences(pair);
        break;
      default:
        if (below(2) == 0) {
          list.erase(at);
          model.erase(model.begin() + static_cast<Offset>(at));
        } else if (below(2) == 0) {
          list.edit(at) = model[at] = element();
        } else {
          list.replace(at, model[at] = element());
        }
    }
  }

  std::mt19937_64 random_;
};

template <class T>
class ListModel : public testing::Test {};

using Elements = testing::Types<int, std::string, UUID, Part, Link, Bundle>;

struct ElementName {
  template <class T>
  static std::string GetName(int) {
    if constexpr (std::is_same_v<T, int>) return "OfNumbers";
    if constexpr (std::is_same_v<T, std::string>) return "OfTexts";
    if constexpr (std::is_same_v<T, UUID>) return "OfIdentifiers";
    if constexpr (std::is_same_v<T, Part>) return "OfRecords";
    if constexpr (std::is_same_v<T, Link>) return "OfLinks";
    if constexpr (std::is_same_v<T, Bundle>) return "OfBundles";
  }
};

TYPED_TEST_SUITE(ListModel, Elements, ElementName);

TYPED_TEST(ListModel, AgreesWithAVectorAndLeavesItsCopiesAlone) {
  std::size_t longest = 0;
  for (std::uint64_t seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Changer<TypeParam> changer(seed);
    Pair<TypeParam> pair;
    std::vector<Pair<TypeParam>> copies(6);
    for (int step = 0; step < 400; ++step) {
      changer.change(pair, step % 100 < 60 ? 7 : 3);
      ASSERT_TRUE(pair.agrees()) << "step " << step;
      longest = std::max(longest, pair.model.size());
      if (!pair.model.empty()) {
        const std::size_t i = changer.below(pair.model.size());
        ASSERT_EQ(pair.list[i], pair.model[i]) << "step " << step;
        ASSERT_EQ(pair.list.begin()[static_cast<std::ptrdiff_t>(i)], pair.model[i]);
        for (int probe = 0; probe < 3; ++probe)
          ASSERT_TRUE(pair.finds(changer.below(pair.model.size()))) << "step " << step;
      }
      if (changer.below(4) == 0) copies[changer.below(copies.size())] = pair;
      if (changer.below(10) == 0) std::swap(copies[changer.below(copies.size())], pair);
      if (step % 10 == 0) {
        for (const Pair<TypeParam>& copy : copies) ASSERT_TRUE(copy.agrees()) << "step " << step;
      }
    }
    for (const Pair<TypeParam>& copy : copies) ASSERT_TRUE(copy.agrees() && copy.findsAll());
    ASSERT_TRUE(pair.findsAll());
    ASSERT_EQ(pair.list, List<TypeParam>(pair.model));
    ASSERT_EQ(pair.list.toVector(), pair.model);
  }
  EXPECT_GT(longest, 1000u) << "the sequences reach too few leaves to mean anything";
}

}  // namespace
}  // namespace korrin
