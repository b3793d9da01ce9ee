#pragma once

#include "richtext/rtf/operations.h"

namespace norvane::rtf {

/// Takes what the interpreter finds and makes the document's operations of it: neighbours of one
/// format become one run, and no text holds what a text may not.
class OperationSink
{
public:
    FormatPool<CharacterFormat> &characterFormats() { return m_document.characterFormats; }
    FormatPool<ParagraphFormat> &paragraphFormats() { return m_document.paragraphFormats; }

    void addText(QStringView text, int format);
    /// Bytes below 0x80.
    void addAscii(QByteArrayView text, int format);
    void addPicture(const Picture &picture, int format);
    void endParagraph(int paragraphFormat, int format);
    /// Takes back a tab at the paragraph's end.
    void chopTab();
    bool paragraphIsEmpty() const { return m_paragraphIsEmpty; }

    /// The operations so far.
    std::vector<Operation> &operations();
    Document take(const QString &defaultFont);

private:
    void beginRun(int format);
    void endRun();

    Document m_document;
    QString m_text;
    int m_format = 0;
    bool m_paragraphIsEmpty = true;
};

} // namespace norvane::rtf
