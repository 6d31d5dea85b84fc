#include "ui/text_ellipsis.h"

namespace {

struct EllipsisLimits {
    int cjkKeep;
    int latinKeep;
};

// CJK glyphs are about twice as wide as Latin ones, so a CJK name keeps fewer
// units. Kind 3 (SSID) keeps no CJK units at all: such a name shows as "...".
EllipsisLimits limitsForKind(int kind)
{
    switch (kind) {
    case 1:
        return {15, 20}; // stream name, status page 2
    case 2:
        return {10, 14}; // device name, status page 1
    case 3:
        return {0, 14}; // SSID, status page 1
    case 4:
        return {20, 23}; // device name, device information page
    case 5:
        return {4, 5}; // NDI name, media settings page 2
    default:
        return {4, 4}; // rows of the shortcut and NAS lists
    }
}

bool containsCjk(const QString& name)
{
    for (const QChar unit : name) {
        const ushort code = unit.unicode();
        if ((code >= 0x3400 && code <= 0x4DBF) || (code >= 0x4E00 && code <= 0x9FFF)
            || (code >= 0xF900 && code <= 0xFAFF))
            return true;
    }
    return false;
}

// A Latin name keeps its head and its last few units, which usually tell
// numbered names ("camera-01", "camera-02") apart.
constexpr int kLatinTailUnits = 4;
constexpr int kLatinSlack = 5;
const QString kEllipsis = QStringLiteral("...");

} // namespace

QString buildEllipsisName(const QString& name, int kind)
{
    if (name.isEmpty())
        return name;
    const EllipsisLimits limits = limitsForKind(kind);
    if (containsCjk(name)) {
        if (name.size() <= limits.cjkKeep + 1)
            return name;
        return name.left(limits.cjkKeep) + kEllipsis;
    }
    if (name.size() <= limits.latinKeep + kLatinSlack)
        return name;
    return name.left(limits.latinKeep) + kEllipsis + name.right(kLatinTailUnits);
}
