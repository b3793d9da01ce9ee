#pragma once

#include "richtext/rtf/ColorTable.h"
#include "richtext/rtf/FontTable.h"
#include "richtext/rtf/OperationSink.h"
#include "richtext/rtf/PictureReader.h"
#include "richtext/rtf/Tokenizer.h"
#include "richtext/rtf/control_words.h"

#include <vector>

namespace norvane::rtf {

/// Reads one document. What a token does depends on the destination of the group it stands in;
/// groups are a stack of states, without recursion. Unknown starred destinations are skipped, other
/// unknown words are ignored.
class Interpreter
{
public:
    explicit Interpreter(QByteArrayView rtf) : m_rtf(rtf), m_tokenizer(rtf), m_fonts(m_codePages) {}

    Document run();

private:
    struct Characters
    {
        int font = kNoFont; ///< kNoFont: the document's default
        int halfPoints = 24;
        int color = 0;      ///< number in the colour table
        int background = 0; ///< number in the colour table; 0 none
        Underline underline = Underline::None;
        Script script = Script::Normal;
        Capitals capitals = Capitals::Normal;
        bool bold = false;
        bool italic = false;
        bool strikeOut = false;
        bool isProtected = false;
        bool hidden = false;
    };

    /// What ends with its group.
    struct State
    {
        Characters characters;
        ParagraphFormat paragraph;
        TabKind nextTab = TabKind::Left;
        int unicodeSkip = 1; ///< how many characters follow a \u for readers that do not know it
        Destination destination = Destination::Body;
        Destination besideAlternative = Destination::Body; ///< destination of the text in two encodings
        bool shapePicture = false;
        bool inFont = false;         ///< a font of the font table began in this group or around it
        qsizetype begin = 0;         ///< of the group in the file
        size_t objectOperations = 0; ///< how many there were when the object began
        int format = kUnknown;       ///< index of the characters' format, once it is needed
        int codePage = kUnknown;
        int paragraphFormat = kUnknown; ///< index of the paragraph's format, once it is needed
    };
    static constexpr int kUnknown = -1;

    void beginGroup(qsizetype position);
    /// False at the end of the document.
    bool endGroup();
    /// Skips the rest of the group, its end included; false at the end of the document.
    bool skipGroup();
    bool skipNested();

    bool handleWord(const Token &token);
    void handleBodyWord(ControlWord word, const Token &token);
    bool handleDocumentWord(ControlWord word, const Token &token);
    bool handleCharacterWord(ControlWord word, const Token &token);
    bool handleParagraphWord(ControlWord word, const Token &token);
    void handleFontWord(ControlWord word, const Token &token);
    bool handleSymbol(const Token &token);
    bool enter(Destination destination);

    void addBytes(QByteArrayView bytes);
    void decodeBytes();
    void addUnit(char16_t unit);
    void addUnicode(int value);
    void addText(QStringView text);
    void beginText();
    void endParagraph();
    void endPicture();
    void endMarker();
    void endObject(const State &object, qsizetype end);
    bool consumeSkipped();

    int codePage();
    int characterFormat();
    int paragraphFormat();
    void charactersChanged() { m_state.format = kUnknown; }
    const Font *currentFont() const;

    QByteArrayView m_rtf;
    Tokenizer m_tokenizer;
    CodePages m_codePages;
    FontTable m_fonts;
    ColorTable m_colors;
    PictureReader m_picture;
    OperationSink m_sink;

    State m_state;
    std::vector<State> m_outer; ///< states of the groups around
    bool m_starred = false;     ///< the next word is of a destination that may be skipped
    int m_toSkip = 0;           ///< characters that stand for a \u
    QByteArray m_bytes;         ///< encoded text that has not been decoded

    int m_codePage = kWesternCodePage;
    bool m_utf8 = false;
    int m_defaultFont = 0;

    QString m_marker;              ///< text of the mark or number that is being read
    QString m_markerText;          ///< number of the paragraph, to be put before its text
    bool m_markedAsBullet = false; ///< the paragraph's mark is a bullet
    bool m_listIsBullet = false;
    bool m_pageBreak = false; ///< before the paragraph
    bool m_shapePictureShown = false;
};

} // namespace norvane::rtf
