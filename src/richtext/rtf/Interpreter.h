#pragma once

#include "richtext/rtf/ColorTable.h"
#include "richtext/rtf/FontTable.h"
#include "richtext/rtf/ListReader.h"
#include "richtext/rtf/OperationSink.h"
#include "richtext/rtf/PictureReader.h"
#include "richtext/rtf/RowReader.h"
#include "richtext/rtf/Tokenizer.h"
#include "richtext/rtf/control_words.h"

#include <vector>

namespace norvane::rtf {

/// Reads one document. What a token does depends on the destination of the group it stands in;
/// groups are a stack of states, without recursion. Starred destinations that are not known are
/// kept, other unknown words are ignored.
class Interpreter
{
public:
    explicit Interpreter(QByteArrayView rtf)
        : m_rtf(rtf), m_tokenizer(rtf), m_fonts(m_codePages), m_lists(m_fonts, m_codePages),
          m_mark(m_fonts, m_codePages)
    {
    }

    Document run();

private:
    struct Characters : CharacterLook
    {
        int font = kNoFont;     ///< kNoFont: the document's default
        int color = 0;          ///< number in the colour table
        int background = 0;     ///< number in the colour table; 0 none
        int underlineColor = 0; ///< number in the colour table; 0 none
    };
    struct Paragraph
    {
        ParagraphFormat format;
        Shading shading;
        int list = 0; ///< number in the table of lists; 0 none
        bool indentStated = false;
        bool inTable = false;
        int depth = 0; ///< of the tables around it, as stated
        TabKind nextTab = TabKind::Left;
    };

    static constexpr int kUnknown = -1;

    /// What ends with its group.
    struct State
    {
        Characters characters;
        Paragraph paragraph;
        int unicodeSkip = 1; ///< how many characters follow a \u for readers that do not know it
        int link = kUnknown; ///< index into m_links
        int wrapper = kUnknown;
        Destination destination = Destination::Body;
        Destination besideAlternative = Destination::Body; ///< destination of the text in two encodings
        bool shapePicture = false;
        bool inFont = false;            ///< a font of the font table began in this group or around it
        qsizetype begin = 0;            ///< of the group in the file
        int format = kUnknown;          ///< index of the characters' format, once it is needed
        int codePage = kUnknown;        ///< of the text, once it is needed
        int paragraphFormat = kUnknown; ///< index of the paragraph's format, once it is needed
    };
    struct Link
    {
        QString address;
        QString tip;
    };
    /// How much of what is not shown has come.
    struct KeptSizes
    {
        qsizetype styles = 0;
        qsizetype prologue = 0;
        qsizetype inText = 0; ///< behind the last text
    };
    /// What a paragraph has by words before it.
    struct Announced
    {
        QString number;        ///< to be put before its text if it is in no list
        bool isBullet = false; ///< its mark is a bullet
        bool pageBreak = false;
    };
    /// A field whose group has not ended.
    struct Field
    {
        QByteArray words;
        QByteArray instruction; ///< as it is kept
        QString text;           ///< of the instruction
        quint64 contentBefore = 0;
        KeptSizes keptBefore;
        Announced announcedBefore;
        RowReader rowBefore;
    };
    /// An object whose group has not ended.
    struct Object
    {
        EmbeddedObject object;
        QString className;
        HexReader data;
        int wrapper = kUnknown; ///< of its result
        quint64 contentBefore = 0;
        quint64 tablePartsBefore = 0;
        quint64 picturesBefore = 0;
    };
    enum class ShapePicture : quint8 { None, Shown, Unshown };

    void beginGroup(qsizetype position);
    /// False at the end of the document.
    bool endGroup();
    void leave(const State &inner);
    /// Skips the rest of the group, its end included; false at the end of the document.
    bool skipGroup();
    bool skipNested();

    // Destinations
    bool enter(Destination destination);
    bool keepGroup(Destination destination);
    void keep(const QByteArray &piece, bool ofStart);
    QByteArray pieceOf(qsizetype begin, qsizetype end);
    void beginFieldResult();
    void endField(const State &field);
    void addSymbolOfField(const QString &instruction);
    void beginObject();
    void beginObjectResult();
    void endObject();
    int addWrapper(const QByteArray &begin);
    void endPicture(qsizetype begin);
    void endMarkText();

    // Words
    bool handleWord(const Token &token);
    void handleBodyWord(ControlWord word, const Token &token);
    bool handleDocumentWord(ControlWord word, const Token &token);
    bool handleTableWord(ControlWord word, const Token &token);
    bool handleCharacterWord(ControlWord word, const Token &token);
    bool handleFontOrColor(ControlWord word, const Token &token);
    bool handleParagraphWord(ControlWord word, const Token &token);
    bool handleParagraphExtra(ControlWord word, const Token &token);
    void handleFontWord(ControlWord word, const Token &token);
    bool handleSymbol(const Token &token);

    // Text
    void addBytes(QByteArrayView bytes);
    void addBytesElsewhere(QByteArrayView bytes);
    void decodeBytes();
    void addUnit(char16_t unit);
    void addUnicode(int value);
    void addText(QStringView text);
    void beginText(int leastDepth = 0);
    void endParagraph();
    void endCell(int level);
    void endRow(int level, const RowDescription &row);
    bool consumeSkipped();

    int depth() const;
    int nestedLevel() const;
    int codePage();
    int characterFormat();
    int paragraphFormat();
    ListItem listItem();
    void charactersChanged() { m_state.format = kUnknown; }
    const Font *currentFont() const;

    QByteArrayView m_rtf;
    Tokenizer m_tokenizer;
    CodePages m_codePages;
    FontTable m_fonts;
    ColorTable m_colors;
    ListReader m_lists;
    MarkReader m_mark;
    PictureReader m_picture;
    RowReader m_row;
    RowReader m_nestedRow; ///< described behind its cells, in a group of its own
    BorderReader m_border;
    OperationSink m_sink;

    State m_state;
    std::vector<State> m_outer; ///< states of the groups around
    bool m_starred = false;     ///< the next word is of a destination that may be skipped
    bool m_fresh = false;       ///< nothing has come in the group so far
    int m_toSkip = 0;           ///< characters that stand for a \u
    QByteArray m_bytes;         ///< encoded text that has not been decoded

    int m_codePage = kWesternCodePage;
    bool m_utf8 = false;
    int m_defaultFont = 0;

    QByteArray m_styles;
    QByteArray m_prologue;
    qsizetype m_keptSize = 0;
    std::vector<Link> m_links;
    std::vector<Wrapper> m_wrappers;
    std::vector<Field> m_openFields;
    std::vector<Object> m_openObjects;

    QString m_markText; ///< text of the mark or number that is being read
    Announced m_announced;
    ShapePicture m_shapePicture = ShapePicture::None; ///< what the last picture of a shape was
    qsizetype m_shapeBegin = 0;                       ///< of its group
    qsizetype m_shapeEnd = 0;
    quint64 m_pictureCount = 0;
};

} // namespace norvane::rtf
