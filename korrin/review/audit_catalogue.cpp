#include <array>

#include "korrin/review/audit.h"

namespace korrin {
namespace {

using enum AuditRule;
using enum PreflightSeverity;

constexpr std::array catalogue = {
    AuditRuleDescription{missingLayer, error, "Symbol is on no layer",
                         "A symbol names a layer that does not exist. It can be neither seen nor "
                         "selected, and it will not be printed.",
                         "Put the symbol on a layer that exists."},
    AuditRuleDescription{hiddenItems, information, "Hidden layer holds symbols",
                         "A layer is hidden, so the symbols on it will not be printed. The venue "
                         "does not see them.",
                         "Show the layer before the plot is sent, unless they are meant to be left "
                         "out."},
    AuditRuleDescription{missingGroup, warning, "Symbol names a missing group",
                         "A symbol says that it belongs to a group that does not exist.",
                         "Take the symbol out of the group that is gone."},
    AuditRuleDescription{oneSidedMembership, warning, "Group and symbol disagree",
                         "A group lists a symbol that does not name it, or a symbol names a group "
                         "that does not list it. Moving the group may leave the symbol behind.",
                         "Let the group list the symbols that name it."},
    AuditRuleDescription{unknownMember, warning, "Group lists an unknown symbol",
                         "A group lists an identifier that no symbol has.",
                         "Take the identifier out of the group."},
    AuditRuleDescription{
        repeatedMember, warning, "Group lists a symbol twice",
        "A group lists one symbol more than once. A program that moves members one "
        "by one would move it twice.",
        "List each symbol once."},
    AuditRuleDescription{emptyGroup, warning, "Group is empty",
                         "A group lists no symbols at all. It cannot be selected or ungrouped.",
                         "Remove the group. Where a symbol still names it, let it list that symbol "
                         "instead."},
    AuditRuleDescription{unencodableNumber, error, "Riser height is not a number",
                         "The height of a symbol is infinite or not a number. No document can hold "
                         "it, so the plot cannot be saved.",
                         "Remove the height, and enter it anew."},
    AuditRuleDescription{rotatedOutsideStage, warning, "Turned symbol leaves the stage",
                         "A symbol fits the stage when it stands straight, but as it is turned, a "
                         "corner reaches more than half a millimetre beyond the edge.",
                         "Move the symbol inside, or turn it back."},
    AuditRuleDescription{
        unreadableTint, warning, "Colour cannot be read",
        "The colour of a symbol is not written as six or eight hexadecimal digits, "
        "such as \"#C0392B\". Programs will draw it differently.",
        "Choose the colour again, or remove it."},
    AuditRuleDescription{
        sharedIdentifier, warning, "Identifier is used in two lists",
        "Records of different lists, such as a symbol and an input, carry the same "
        "identifier. Findings about them cannot be told apart.",
        "Give the later record an identifier of its own."},
    AuditRuleDescription{numberBelowOne, warning, "Number is below 1",
                         "A channel or mix number is zero or negative. No console has such a "
                         "channel.",
                         "Write the number that is on the console, or remove it."},
    AuditRuleDescription{
        unusedAsset, information, "Embedded image is not used",
        "An embedded image is shown by no symbol. It makes the document larger and "
        "nothing else.",
        "Remove the image."},
    AuditRuleDescription{repeatedAsset, information, "Embedded image is listed twice",
                         "The list of embedded images names one image more than once.",
                         "Keep the first entry."},
    AuditRuleDescription{newerFormat, information, "Written by a newer version",
                         "The document was written in a newer version of the format. What that "
                         "version added is not shown, and saving may drop it.",
                         "Open the plot with the version that wrote it, or save a copy under "
                         "another name."},
};

}  // namespace

std::span<const AuditRuleDescription> auditRules() { return catalogue; }

}  // namespace korrin
