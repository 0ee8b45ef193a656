#pragma once

// Plots that repeat from run to run, and how two of them compare.

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <map>

#include "korrin/coding/json.h"
#include "korrin/model/document_coding.h"

namespace korrin::editor::test {

/// A clock that stands still and identifiers that count up: two runs are the same.
inline Environment repeatable() {
  return {.now = [] { return Instant{} + std::chrono::hours(24 * 365 * 50); },
          .makeUUID =
              [made = std::uint32_t{0}]() mutable {
                UUID::Bytes bytes{};
                ++made;
                for (std::size_t i = 0; i < 4; ++i)
                  bytes[15 - i] = static_cast<std::uint8_t>(made >> (8 * i));
                return UUID(bytes);
              }};
}

/// The document with its identifiers numbered as they come: two plots from one template agree.
inline QString withoutIdentifiers(const KorrinProject& project) {
  static const QRegularExpression identifier("[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}");
  const QString text = QString::fromStdString(encodeJSON(project, prettyPrinted));
  std::map<QString, qsizetype> numbers;
  QString result;
  qsizetype end = 0;
  for (auto found = identifier.globalMatch(text); found.hasNext();) {
    const auto match = found.next();
    const qsizetype number =
        numbers.emplace(match.captured(), qsizetype(numbers.size())).first->second;
    result += text.mid(end, match.capturedStart() - end) + '#' + QString::number(number);
    end = match.capturedEnd();
  }
  return result + text.mid(end);
}

/// Compares, and says what differs to who reads the log of a failure.
inline bool areEqual(const KorrinProject& actual, const KorrinProject& expected) {
  if (actual == expected) return true;
  const QStringList is = QString::fromStdString(encodeJSON(actual, prettyPrinted)).split('\n');
  const QStringList shouldBe =
      QString::fromStdString(encodeJSON(expected, prettyPrinted)).split('\n');
  int left = 5;
  for (qsizetype i = 0; i < std::min(is.size(), shouldBe.size()) && left > 0; ++i)
    if (is[i] != shouldBe[i] && left-- > 0)
      qWarning("line %d is %s and should be %s", int(i), qPrintable(is[i]),
               qPrintable(shouldBe[i]));
  return false;
}

/// But for the instant that every edit sets.
inline KorrinProject timeless(KorrinProject project) {
  project.metadata.modifiedAt = {};
  return project;
}

}  // namespace korrin::editor::test
