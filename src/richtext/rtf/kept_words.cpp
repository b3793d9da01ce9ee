#include "richtext/rtf/kept_words.h"

#include "richtext/rtf/limits.h"

#include <optional>

namespace norvane::rtf {
namespace {

struct KeptWord
{
    qsizetype begin = 0;
    qsizetype end = 0;
    QByteArrayView letters;
};

/// The word that begins at a position.
KeptWord wordAt(const QByteArray &kept, qsizetype begin)
{
    KeptWord word;
    word.begin = begin;
    qsizetype end = begin + 1;
    while (end < kept.size() && (kept.at(end) | 0x20) >= 'a' && (kept.at(end) | 0x20) <= 'z')
        ++end;
    word.letters = QByteArrayView(kept).sliced(begin + 1, end - begin - 1);
    while (end < kept.size() && kept.at(end) != '\\')
        ++end;
    word.end = end;
    return word;
}

} // namespace

void removeKeptWord(QByteArray &kept, QByteArrayView letters)
{
    for (qsizetype position = 0; position < kept.size();) {
        const KeptWord word = wordAt(kept, position);
        if (word.letters == letters) {
            kept.remove(word.begin, word.end - word.begin);
            return;
        }
        position = word.end;
    }
}

void setKeptWord(QByteArray &kept, const Token &word, bool isSwitch)
{
    removeKeptWord(kept, word.bytes);
    if (isSwitch && word.hasParameter && word.parameter == 0)
        return;
    QByteArray written = "\\" + word.bytes.toByteArray();
    if (word.hasParameter)
        written += QByteArray::number(word.parameter);
    if (kept.size() + written.size() > kMaximumKeptWordsLength)
        return;
    qsizetype place = 0;
    while (place < kept.size()) {
        const KeptWord other = wordAt(kept, place);
        if (QByteArrayView(word.bytes) < other.letters)
            break;
        place = other.end;
    }
    kept.insert(place, written);
}

} // namespace norvane::rtf
