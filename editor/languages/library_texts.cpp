#include "editor/languages/library_texts.h"

#include <QCoreApplication>
#include <QHash>
#include <array>
#include <optional>
#include <vector>

namespace korrin::editor {
namespace {

// Whole sentences, and names that have nothing of a plot in them.
constexpr const char* fixedTexts[] = {
    // Findings
    "Each input channel must be unique.", "Each monitor mix number must be unique.",
    "Input source is missing", "Add a source name to the input list.", "Input is not placed",
    "This input is not linked to a plot symbol.", "Input link is invalid",
    "The linked plot item no longer exists.", "Monitor output is missing",
    "Add an output patch for this mix.", "Monitor mix is not placed",
    "This mix is not linked to a monitor symbol.", "Monitor link is invalid",
    "Invalid equipment quantity", "Quantity must be greater than zero.",
    "Equipment link is invalid", "Symbol label is empty",
    "A visible label helps venue teams read the plot.", "Symbol is outside the stage",
    "Move the symbol inside the stage boundary.", "Symbol asset is missing",
    "The symbol cannot be rendered.", "Symbol is on no layer",
    "The layer of this symbol does not exist.", "Hidden layer holds symbols",
    "Symbol names a missing group", "The group of this symbol does not exist.",
    "Group and symbol disagree", "The group does not list exactly the symbols that name it.",
    "Group lists an unknown symbol", "The group lists an identifier that no symbol has.",
    "Group lists a symbol twice", "The group lists a symbol more than once.", "Group is empty",
    "The group lists no symbols.", "Riser height is not a number",
    "The plot cannot be saved with this height.", "Turned symbol leaves the stage",
    "Move the symbol until its turned corners are inside.", "Colour cannot be read",
    "Write six or eight hexadecimal digits.", "Identifier is used in two lists",
    "Channel is below 1", "Mix number is below 1", "Number is below 1",
    "Consoles count their channels and mixes from 1.", "Embedded image is not used",
    "No symbol shows this image.", "Embedded image is listed twice",
    "The list of embedded images names this one more than once.", "Written by a newer version",
    // Templates
    "Solo Acoustic", "Vocal, acoustic guitar, DI, wedge, inputs, and a compact 8 × 6 m stage.",
    "Power Trio", "Drums, bass, guitar, three mixes, and a practical festival input list.",
    "Electronic Duo", "Stereo playback, two performers, IEMs, vocal inputs, and clean power.",
    "Five-Piece Band",
    "A complete festival-ready plot with 11 inputs, three mixes, and production notes.",
    // Symbols
    "Boom stand", "Drum fill", "In-ear monitor", "Microphone", "Round-base stand", "Side fill",
    "Sub-snake", "Wedge monitor", "Bass amplifier", "Amplifier", "Music stand", "Stool", "Table",
    "Acoustic guitar", "DJ table", "Drum kit", "Grand piano", "Horn stand", "Keyboard", "Laptop",
    "Percussion", "Upright bass", "Performer", "Person seated", "Choir riser", "Handrail", "Riser",
    "Stairs", "Camera", "DI box", "Power distribution", "Power",
    // Lists of a plot
    "layers", "symbols", "groups", "inputs", "mixes", "equipment", "notes"};

// Sentences about something: the first that fits is meant, so that what is more general comes
// later.
constexpr const char* sentencesAbout[] = {
    "Duplicate input channel %1",
    "Duplicate monitor mix %1",
    "Add an output patch for %1.",
    "The %1 is hidden and holds 1 symbol that will not be printed.",
    "The %1 is hidden and holds %2 symbols that will not be printed.",
    "One identifier stands in %1.",
    "The document says version %1 of the format, and version %2 is the newest known here.",
    "Set the label of %1 to %2, the source of %3",
    "Set the label of %1 to %2, the name of %3",
    "Hide the label of %1",
    "Move %1 inside the stage, to x %2 mm, y %3 mm",
    "Give the record in %1 with the identifier %2 a fresh one, its links following",
    "Give %1 channel %2",
    "Give %1 number %2",
    "Remove the channel of %1",
    "Remove the number of %1",
    "Remove the link of %1 to a symbol that is not in the plot",
    "Remove the riser height of %1",
    "Remove the colour of %1",
    "Remove the unused %1, all %2 entries",
    "Remove the unused %1",
    "Remove the empty %1",
    "Remove %1",
    "Link %1 to %2",
    "Set the source of %1 to %2, the label of its symbol",
    "Set the quantity of %1 to 1",
    "Keep only the first entry of %1",
    "Take what is no symbol out of %1",
    "Take %1 out of a group that does not exist",
    "Let %1 list the symbols that name it",
    "List each symbol of %1 once",
    "Put %1 on the first layer, %2",
    "Show the %1"};

// What records are called, before their name in quotation marks, their number or their place.
constexpr const char* kindsOfRecords[] = {
    "input %1",      "mix %1",        "equipment %1", "layer %1",     "group %1",
    "asset %1",      "microphone %1", "monitor %1",   "amplifier %1", "riser %1",
    "instrument %1", "furniture %1",  "performer %1", "power %1",     "custom %1"};
constexpr const char* placesOfRecords[] = {"in row %1", "at x %1 mm, y %2 mm"};

QString translated(const char* text) { return QCoreApplication::translate("LibraryTexts", text); }

// What stands at %1, %2 and %3 of the pattern where the text is of its form. Each stretch ends
// where what follows it begins for the first time, the last one with the text.
std::optional<QStringList> partsOf(const QString& text, const QString& pattern) {
  QStringList parts;
  qsizetype at = 0;
  qsizetype end = pattern.indexOf('%');
  if (end < 0) return text == pattern ? std::optional(parts) : std::nullopt;
  if (!text.startsWith(QStringView(pattern).left(end))) return std::nullopt;
  at = end;
  while (end >= 0) {
    const qsizetype begin = end + 2;
    end = pattern.indexOf('%', begin);
    const QStringView fixed =
        QStringView(pattern).mid(begin, end < 0 ? pattern.size() - begin : end - begin);
    qsizetype found = text.size();
    if (end >= 0) {
      found = text.indexOf(fixed, at);
    } else if (text.endsWith(fixed)) {
      found = text.size() - fixed.size();
    } else {
      return std::nullopt;
    }
    if (found <= at) return std::nullopt;
    parts.append(text.mid(at, found - at));
    at = found + fixed.size();
  }
  return parts;
}

// All at once: what is put in may have a %1 of its own.
QString filled(const QString& pattern, const QStringList& parts) {
  switch (parts.size()) {
    case 1:
      return pattern.arg(parts[0]);
    case 2:
      return pattern.arg(parts[0], parts[1]);
    case 3:
      return pattern.arg(parts[0], parts[1], parts[2]);
    default:
      return pattern;
  }
}

// `in row 3` behind the kind; names in quotation marks and numbers as they are.
QString placeInUsersLanguage(const QString& place) {
  for (const char* pattern : placesOfRecords)
    if (const auto parts = partsOf(place, QString::fromUtf8(pattern)))
      return filled(translated(pattern), *parts);
  return place;
}

// `input 7 "Bass DI"`, or `symbols, inputs and notes`.
QString nameInUsersLanguage(const QString& name) {
  for (const char* pattern : kindsOfRecords)
    if (const auto parts = partsOf(name, QString::fromUtf8(pattern)))
      return translated(pattern).arg(placeInUsersLanguage(parts->first()));
  return name;
}

QString listsInUsersLanguage(const QString& lists) {
  QString result;
  const QStringList words = QString(lists).replace(" and ", ", ").split(", ");
  for (qsizetype i = 0; i < words.size(); ++i) {
    if (i > 0)
      result += i + 1 == words.size()
                    ? ' ' + QCoreApplication::translate("LibraryTexts", "and") + ' '
                    : QString(", ");
    result += inUsersLanguage(words[i]);
  }
  return result;
}

const QHash<QString, const char*>& fixedOnes() {
  static const auto all = [] {
    QHash<QString, const char*> texts;
    for (const char* text : fixedTexts) texts.insert(QString::fromUtf8(text), text);
    return texts;
  }();
  return all;
}

const std::vector<QString>& patternsAbout() {
  static const std::vector<QString> all(std::begin(sentencesAbout), std::end(sentencesAbout));
  return all;
}

std::optional<QString> known(const QString& sentence) {
  if (const char* fixed = fixedOnes().value(sentence)) return translated(fixed);
  for (std::size_t i = 0; i < patternsAbout().size(); ++i) {
    std::optional<QStringList> parts = partsOf(sentence, patternsAbout()[i]);
    if (!parts) continue;
    // A mix is called by its name alone there, without quotation marks.
    if (sentence.startsWith("Add an output")) return filled(translated(sentencesAbout[i]), *parts);
    const bool isAboutLists =
        sentence.startsWith("One identifier stands") || sentence.startsWith("Give the record in ");
    parts->first() =
        isAboutLists ? listsInUsersLanguage(parts->first()) : nameInUsersLanguage(parts->first());
    for (qsizetype k = 1; k < parts->size(); ++k) (*parts)[k] = nameInUsersLanguage((*parts)[k]);
    return filled(translated(sentencesAbout[i]), *parts);
  }
  return std::nullopt;
}

}  // namespace

QString inUsersLanguage(const QString& sentence) { return known(sentence).value_or(sentence); }

QString inUsersLanguage(std::string_view sentence) {
  return inUsersLanguage(QString::fromUtf8(sentence.data(), qsizetype(sentence.size())));
}

bool isKnown(const QString& sentence) { return known(sentence).has_value(); }

QStringList librarySentences() {
  QStringList all{"and"};
  for (const char* text : fixedTexts) all.append(QString::fromUtf8(text));
  for (const char* text : sentencesAbout) all.append(QString::fromUtf8(text));
  for (const char* text : kindsOfRecords) all.append(QString::fromUtf8(text));
  for (const char* text : placesOfRecords) all.append(QString::fromUtf8(text));
  return all;
}

}  // namespace korrin::editor
