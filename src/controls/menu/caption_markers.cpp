#include "controls/menu/caption_markers.h"

#include "controls/menu/MenuItem.h"
#include "controls/menu/shortcut_text.h"

namespace norvane {

namespace {

/// Takes one kind of marker out of a text; true if it stood there singly.
bool takeMarker(QString &text, QChar marker)
{
    if (!text.contains(marker))
        return false;
    bool isSet = false;
    QString rest;
    rest.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c != marker) {
            rest += c;
        } else if (i + 1 < text.size() && text.at(i + 1) == marker) {
            rest += c;
            ++i;
        } else {
            isSet = true;
        }
    }
    text = rest;
    return isSet;
}

/// The character at a position, both halves of it if it has two.
QString characterAt(const QString &text, qsizetype position)
{
    const bool isPair = text.at(position).isHighSurrogate() && position + 1 < text.size();
    return text.mid(position, isPair ? 2 : 1);
}

} // namespace

void applyCaption(MenuItem &item, const QString &caption)
{
    item.caption = caption;
    item.Header = false;
    item.columnBreak = false;
    item.barColumnBreak = false;
    item.shortcutText.clear();
    item.accessKey.clear();
    item.displayCaption = caption;
    if (!item.isSeparator()) {
        QString text = caption;
        if (text.startsWith(u'-')) {
            item.Header = true;
            text.remove(0, 1);
        }
        if (const qsizetype tab = text.indexOf(u'\t'); tab >= 0) {
            item.shortcutText = text.mid(tab + 1);
            text.truncate(tab);
        }
        item.columnBreak = takeMarker(text, u'|');
        item.barColumnBreak = takeMarker(text, u'^');
        item.displayCaption = text;
        const ShownText shown = shownText(text);
        if (shown.underlined >= 0)
            item.accessKey = characterAt(shown.text, shown.underlined).toUpper();
    }
    const ShortcutKey key = parseShortcutText(item.shortcutText);
    item.shortcutShift = key.shift;
    item.shortcutKey = key.code;
}

ShownText shownText(const QString &displayCaption)
{
    if (!displayCaption.contains(u'&'))
        return {displayCaption, -1};
    ShownText shown;
    shown.text.reserve(displayCaption.size());
    for (qsizetype i = 0; i < displayCaption.size(); ++i) {
        const QChar c = displayCaption.at(i);
        if (c != u'&') {
            shown.text += c;
            continue;
        }
        if (++i == displayCaption.size())
            break;
        const QChar next = displayCaption.at(i);
        if (next != u'&' && shown.underlined < 0)
            shown.underlined = int(shown.text.size());
        shown.text += next;
    }
    return shown;
}

} // namespace norvane
