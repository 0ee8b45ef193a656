// Meant for the thread sanitizer: each test makes threads do what List allows at the same time.

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/foundation/list.h"
#include "korrin/foundation/uuid.h"

namespace korrin {
namespace {

List<std::string> texts(std::size_t count) {
  List<std::string> list;
  for (std::size_t i = 0; i < count; ++i) list.push_back("element number " + std::to_string(i));
  return list;
}

struct Symbol {
  UUID id;
  std::string label;
};

}  // namespace

template <>
inline constexpr auto searchKey<Symbol> = &Symbol::id;

namespace {

std::size_t totalLength(const List<std::string>& list) {
  std::size_t length = 0;
  for (const std::string& text : list) length += text.size();
  return length;
}

TEST(ListThreads, ReadCopiesWhileAnotherCopyIsEditedAndDropped) {
  const List<std::string> original = texts(300);
  const std::size_t length = totalLength(original);
  std::vector<std::thread> threads;
  for (int reader = 0; reader < 3; ++reader) {
    threads.emplace_back([copy = original, length] {
      for (int round = 0; round < 50; ++round) {
        EXPECT_EQ(totalLength(copy), length);
        EXPECT_EQ(copy[299], "element number 299");
        const List<std::string> copyOfCopy = copy;
        EXPECT_EQ(copyOfCopy, copy);
      }
    });
  }
  threads.emplace_back([copy = original]() mutable {
    for (std::size_t round = 0; round < 50; ++round) {
      List<std::string> edited = copy;
      edited.edit(round) = "edited";
      edited.erase(100);
      edited.insert(17, "inserted");
      edited.push_back("appended");
      EXPECT_EQ(edited.eraseIf([](const std::string& text) { return text.size() < 10; }), 3u);
    }
  });
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(original, texts(300));
}

TEST(ListThreads, SearchCopiesWhileAnotherCopyIsEdited) {
  List<Symbol> original;
  for (std::size_t i = 0; i < 300; ++i)
    original.emplace_back(Symbol{}).id = UUID({static_cast<std::uint8_t>(i)});
  original.edit(17).label = "opened";
  std::vector<std::thread> threads;
  for (int reader = 0; reader < 3; ++reader) {
    threads.emplace_back([copy = original] {
      const UUID sought = copy[40].id;
      for (int round = 0; round < 50; ++round) {
        bool isFound = false;
        copy.forEachCandidate(std::vector{sought},
                              [&](std::size_t place, const Symbol&) { isFound |= place == 40; });
        EXPECT_TRUE(isFound);
      }
    });
  }
  threads.emplace_back([copy = original]() mutable {
    for (std::size_t round = 0; round < 50; ++round) {
      copy.edit(round).id = UUID();
      copy.replace(round + 60, {.id = UUID(), .label = "replaced"});
      copy.erase(200);
    }
  });
  for (std::thread& thread : threads) thread.join();
}

// The first search after a copy makes the marks of what was edited, in storage that all share.
TEST(ListThreads, SearchAListThatWasEditedWhileOthersCopyIt) {
  for (int round = 0; round < 20; ++round) {
    List<Symbol> original;
    for (std::size_t i = 0; i < 300; ++i) original.push_back({.id = UUID(), .label = "new"});
    for (std::size_t i = 0; i < 300; ++i)
      original.edit(i).id = UUID({static_cast<std::uint8_t>(i), 1});
    const auto finds = [](const List<Symbol>& list, std::size_t sought) {
      bool isFound = false;
      list.forEachCandidate(std::vector{list[sought].id},
                            [&](std::size_t place, const Symbol&) { isFound |= place == sought; });
      return isFound;
    };
    std::atomic<int> ready = 0;
    std::vector<std::thread> threads;
    for (std::size_t reader = 0; reader < 4; ++reader) {
      threads.emplace_back([&, reader] {
        ++ready;
        while (ready < 4) std::this_thread::yield();
        // The second and the last look at the list itself.
        List<Symbol> copy;
        if (reader % 2 == 0) copy = original;
        const List<Symbol>& list = reader % 2 == 0 ? copy : original;
        for (std::size_t i = reader; i < 300; i += 10) EXPECT_TRUE(finds(list, i));
        if (reader == 2) copy.edit(5).label = "edited";
      });
    }
    for (std::thread& thread : threads) thread.join();
    for (std::size_t i = 0; i < 300; ++i) original.edit(i).id = UUID({7});
    EXPECT_TRUE(finds(original, 299));
  }
}

TEST(ListThreads, EachEditsACopyOfItsOwn) {
  List<std::string> original = texts(130);
  std::vector<std::thread> threads;
  for (std::size_t editor = 0; editor < 4; ++editor) {
    threads.emplace_back([copy = original, editor]() mutable {
      for (std::size_t i = 0; i < copy.size(); ++i) copy.edit(i) = std::to_string(editor);
      for (const std::string& text : copy) EXPECT_EQ(text, std::to_string(editor));
    });
  }
  // The last owner of a part edits it in place, after all others have read it for their copies.
  for (std::size_t i = 0; i < original.size(); ++i) original.edit(i) += "!";
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(original[129], "element number 129!");
}

TEST(ListThreads, TheLastOwnerDisposesOfWhatOthersHaveRead) {
  for (int round = 0; round < 50; ++round) {
    List<UUID> identifiers;
    for (int i = 0; i < 100; ++i) identifiers.push_back(UUID());
    std::atomic<int> ready = 0;
    std::vector<std::thread> threads;
    for (int owner = 0; owner < 3; ++owner) {
      threads.emplace_back([copy = identifiers, &ready]() mutable {
        ++ready;
        while (ready < 3) std::this_thread::yield();
        EXPECT_EQ(copy.size(), 100u);
        copy.edit(0) = UUID::random();
        copy.clear();
      });
    }
    identifiers.clear();
    for (std::thread& thread : threads) thread.join();
  }
}

// A leaf lends its elements to the copy of it that is changed (list_loan.h). Of a loan, both ends
// are dropped or changed at the same time.
TEST(ListThreads, BothEndsOfALoanEndAtOnce) {
  const auto element = std::make_shared<int>(7);  // it counts by how many lists it is held
  const auto drop = [](auto& list) { list.clear(); };
  const auto edit = [](auto& list) { list.edit(9) = nullptr; };
  const auto erase = [](auto& list) { list.erase(30); };
  const auto lend = [](auto& list) {
    for (std::size_t i = 0; i < 3; ++i) {
      auto copy = list;
      copy.erase(i);
    }
  };
  using Change = std::function<void(List<std::shared_ptr<int>>&)>;
  const std::vector<Change> changes = {drop, edit, erase, lend};
  for (std::size_t round = 0; round < 20 * changes.size() * changes.size(); ++round) {
    List<std::shared_ptr<int>> lender(std::vector(64, element));
    List<std::shared_ptr<int>> borrower = lender;
    borrower.replace(20, nullptr);
    std::atomic<int> ready = 0;
    std::vector<std::thread> threads;
    for (List<std::shared_ptr<int>>* end : {&lender, &borrower}) {
      const Change& change = changes[(end == &lender ? round : round / changes.size()) % 4];
      threads.emplace_back([&, end] {
        ++ready;
        while (ready < 2) std::this_thread::yield();
        change(*end);
      });
    }
    for (std::thread& thread : threads) thread.join();
    for (const auto* end : {&lender, &borrower})
      for (const auto& held : *end) EXPECT_TRUE(held == nullptr || *held == 7);
    lender.clear();
    borrower.clear();
    ASSERT_EQ(element.use_count(), 1) << "round " << round;
  }
}

// Several threads ask one leaf for the loan; one gets it.
TEST(ListThreads, OneOfManyBorrows) {
  const auto element = std::make_shared<int>(7);
  for (int round = 0; round < 50; ++round) {
    List<std::shared_ptr<int>> original(std::vector(64, element));
    std::atomic<int> ready = 0;
    std::vector<std::thread> threads;
    for (std::size_t borrower = 0; borrower < 3; ++borrower) {
      threads.emplace_back([copy = original, borrower, &ready]() mutable {
        ++ready;
        while (ready < 3) std::this_thread::yield();
        copy.erase(borrower);
        for (const auto& held : copy) EXPECT_EQ(*held, 7);
      });
    }
    original.clear();
    for (std::thread& thread : threads) thread.join();
    threads.clear();
    ASSERT_EQ(element.use_count(), 1) << "round " << round;
  }
}

}  // namespace
}  // namespace korrin
