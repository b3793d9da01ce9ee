// What comes before the text: tables of fonts, colours and lists; and pictures.

#include "richtext/rtf/format_writer.h"
#include "richtext/rtf/object_groups.h"
#include "richtext/rtf/symbol_fonts.h"

namespace norvane::rtf {
namespace {

void writeFonts(RtfOutput &out, const WriterTables &tables)
{
    int number = 0;
    for (const WriterTables::Font &font : tables.fonts()) {
        out.put("{\\f" + QByteArray::number(number++) + "\\fnil\\fcharset" + (font.symbol ? "2" : "0"));
        out.setAfterWord();
        out.text(QString(font.name).remove(u';'));
        out.put(";}");
    }
}

void writeColors(RtfOutput &out, const WriterTables &tables)
{
    if (tables.colors().isEmpty())
        return;
    out.put("{\\colortbl ;");
    for (const quint32 color : tables.colors()) {
        for (const int shift : {16, 8, 0})
            out.numberOf(Word::ColorPart, shift, int(color >> shift & 0xFF));
        out.put(";");
    }
    out.put("}");
    out.endLine();
}

/// The text of a level: its length, the characters, the levels whose numbers stand in it.
void writeLevelText(RtfOutput &out, const ListLevel &level)
{
    const auto byte = [](qsizetype value) {
        return "\\'" + QByteArray::number(value, 16).rightJustified(2, '0');
    };
    QByteArray places;
    out.put("{\\leveltext" + byte(level.text.size()));
    for (qsizetype i = 0; i < level.text.size(); ++i) {
        const QChar character = level.text.at(i);
        const char16_t unit = character.unicode();
        const unsigned char sign = level.symbol ? symbolNumber(level.font, unit) : 0;
        if (unit > 0 && unit <= kDeepestLevel + 1) {
            out.put(byte(unit - 1));
            places += byte(i + 1);
        } else if (sign != 0) {
            out.put("\\u" + QByteArray::number(qint16(0xF000 + sign)) + '?');
        } else if (unit >= 0x7F || level.symbol) {
            out.put("\\u" + QByteArray::number(qint16(unit)) + '?');
        } else {
            out.text(QStringView(&character, 1));
        }
    }
    out.put(";}{\\levelnumbers" + places + ";}");
}

void writeLists(RtfOutput &out, WriterTables &tables)
{
    if (tables.lists().empty())
        return;
    out.put("{\\*\\listtable");
    QSet<int> written;
    for (const List &list : tables.lists()) {
        if (written.contains(list.identity))
            continue;
        written.insert(list.identity);
        out.endLine();
        out.put("{\\list\\listtemplateid" + QByteArray::number(list.identity));
        for (const ListLevel &level : list.levels) {
            out.put("{\\listlevel");
            out.number(Word::LevelStyle, level.style);
            out.number(Word::LevelAlignment, level.alignment);
            out.number(Word::LevelFollow, level.follow);
            out.number(Word::LevelStart, level.start);
            writeLevelText(out, level);
            if (!level.font.isEmpty())
                out.number(Word::Font, tables.font(level.font, level.symbol));
            out.number(Word::FirstIndent, level.firstIndent);
            out.number(Word::LeftIndent, level.leftIndent);
            out.put("}");
        }
        out.put("{\\listname ;}");
        out.number(Word::ListIdentity, list.identity);
        out.put("}");
    }
    out.put("}");
    out.endLine();
    out.put("{\\*\\listoverridetable");
    for (const List &list : tables.lists()) {
        out.put("{\\listoverride");
        out.number(Word::ListIdentity, list.identity);
        out.put("\\listoverridecount0");
        out.number(Word::ListNumber, list.number);
        out.put("}");
    }
    out.put("}");
    out.endLine();
}

} // namespace

void writeHeader(RtfOutput &out, WriterTables &tables, const Document &document)
{
    out.put("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl");
    writeFonts(out, tables);
    out.put("}");
    out.endLine();
    writeColors(out, tables);
    const auto piece = [&](const QByteArray &bytes) {
        if (bytes.isEmpty())
            return;
        out.put(tables.written(bytes));
        out.endLine();
    };
    piece(document.styles);
    writeLists(out, tables);
    piece(document.prologue);
    out.put("\\viewkind4\\uc1");
}

void writePicture(RtfOutput &out, WriterTables &tables, const Picture &picture)
{
    if (picture.object)
        out.put(
            objectGroupBegin(*picture.object, [&](const QByteArray &kept) { return tables.written(kept); }));
    if (!picture.original.isEmpty()) {
        out.put(tables.written(picture.original));
    } else if (!picture.bytes.isEmpty()) {
        out.put("{\\pict" + tables.written(picture.kept));
        const int kind = int(picture.kind);
        if (picture.kind == PictureKind::Wmf)
            out.numberOf(Word::PictureKind, kind, picture.mapMode);
        else if (picture.kind == PictureKind::Dib)
            out.numberOf(Word::PictureKind, kind, 0);
        else
            out.word(Word::PictureKind, kind);
        const Sides<int> &crop = picture.crop;
        for (const Side side : kSides) {
            if (crop[side] != 0)
                out.numberOf(Word::PictureCrop, int(side), crop[side]);
        }
        const auto whole = [](int shown, int cut) { return shown == 0 ? 0 : shown + cut; };
        out.numberUnless0(Word::PictureWidth, picture.width);
        out.numberUnless0(Word::PictureHeight, picture.height);
        out.numberUnless0(Word::PictureGoalWidth,
                          whole(picture.displayWidth, crop[Side::Left] + crop[Side::Right]));
        out.numberUnless0(Word::PictureGoalHeight,
                          whole(picture.displayHeight, crop[Side::Top] + crop[Side::Bottom]));
        out.hexLines(picture.bytes);
        out.put("}");
    }
    if (picture.object)
        out.put("}}");
}

} // namespace norvane::rtf
