#pragma once

#include "richtext/rtf/control_words.h"

#include <QByteArray>
#include <QString>

namespace norvane::rtf {

/// Rich text that is being written: puts the blanks between words and text.
class RtfOutput
{
public:
    void word(Word word, int argument = 0);
    void number(Word word, int parameter) { numberOf(word, 0, parameter); }
    void numberOf(Word word, int argument, int parameter);
    /// The word with its parameter, unless that is 0.
    void numberUnless0(Word word, int parameter);
    /// Words and groups as they are.
    void put(QByteArrayView bytes);
    /// What was put ended in a word: text needs a blank before it.
    void setAfterWord() { m_afterWord = true; }
    void text(QStringView text);
    void hexLines(const QByteArray &bytes);
    void endLine() { put("\r\n"); }

    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
    bool m_afterWord = false;
};

} // namespace norvane::rtf
