#include "Mutator.h"

namespace norvane {
namespace {

/// What is put between bytes, with a bar behind each.
const QList<QByteArray> kPieces =
    QByteArray("{|}|\\|\\'|\\*|;| |\r\n|\\\n|\\~|\\par |\\pard |\\plain |\\u-1 |\\u55357 |\\u56832 |"
               "\\u61623 |\\uc0 |\\uc9 |\\bin9 |\\bin999999999 |{\\*\\x |{\\x |{\\upr{|{\\*\\ud |"
               "{\\pict\\pngblip |{\\*\\shppict|{\\nonshppict |\\picwgoal99999 |\\piccropl50 |\\picscalex7 |"
               "{\\pntext |{\\listtext |{\\*\\pn\\pnlvlblt |{\\*\\pn\\pnlvlbody\\pndec |{\\pntxtb |"
               "{\\pntxta |\\ls1 |\\ls2\\ilvl7 |{\\*\\listtable|{\\list|{\\listlevel|\\listid1 |"
               "{\\leveltext\\'02\\'00.;}|{\\*\\listoverridetable|{\\listoverride|{\\object\\objemb|"
               "{\\*\\objclass |{\\*\\objdata |{\\result |{\\field|{\\*\\fldinst HYPERLINK \"a\"}|"
               "{\\*\\fldinst PAGE}|{\\*\\fldinst SYMBOL 183}|{\\fldrslt |{\\fonttbl |\\f1\\fcharset128 |"
               "\\f2\\fcharset2 Symbol;|{\\colortbl|\\red9\\blue300;|\\cf1 |\\f2 |\\f9 |\\fs0 |\\outl |"
               "\\outl0 |\\lang1031 |\\trowd\\cellx100\\cellx90 |\\trowd\\clmgf\\cellx9\\clmrg\\cellx99 |"
               "\\clvmrg\\cellx500 |\\intbl |\\itap2 |\\itap9 |\\cell |\\row |\\nestcell |"
               "{\\*\\nesttableprops\\trowd\\cellx5\\nestrow}|{\\nonesttables\\par}|\\brdrt\\brdrs\\brdrw5 |"
               "\\clbrdrb\\brdrdb |\\cbpat1 |\\sect\\sectd |\\page |{\\header |{\\footnote |\\chftn |"
               "{\\*\\bkmkstart a}|{\\stylesheet{\\s1 A;}}|\\s1 |\\keepn |{\\info{\\title T}}|\\paperw5 |"
               "\xE9|\x83|\\'83|\\'e9|\x01|\\tab |\\line |\\v |\\protect |\\super |\\up6 |\\caps\\scaps |"
               "\\rtlpar\\ql |\\tqr\\tx50 |\\sl-5\\slmult0 ")
        .split('|');

constexpr int kMaximumSize = 60'000;

} // namespace

qsizetype Mutator::place(const QByteArray &rtf)
{
    constexpr int kHeader = 6; // what makes it rich text stays
    return rtf.size() <= kHeader ? rtf.size() : m_random.bounded(kHeader, int(rtf.size()));
}

/// A whole group of a document, or what begins as one.
QByteArray Mutator::groupOf(const QByteArray &rtf)
{
    const qsizetype begin = rtf.indexOf('{', place(rtf));
    if (begin < 0)
        return {};
    int depth = 0;
    for (qsizetype i = begin; i < rtf.size() && i < begin + 4'000; ++i) {
        if (rtf.at(i) == '{')
            ++depth;
        else if (rtf.at(i) == '}' && --depth == 0)
            return rtf.mid(begin, i + 1 - begin);
    }
    return rtf.mid(begin, 200);
}

void Mutator::change(QByteArray &rtf)
{
    const qsizetype at = place(rtf);
    switch (m_random.bounded(10)) {
    case 0:
        if (at < rtf.size())
            rtf[at] = char(m_random.bounded(256));
        break;
    case 1:
        rtf.remove(at, m_random.bounded(1, 20));
        break;
    case 2:
        rtf.remove(at, m_random.bounded(1, 600));
        break;
    case 3: { // a piece once more, elsewhere
        const QByteArray piece = rtf.mid(place(rtf), m_random.bounded(1, 300));
        rtf.insert(at, piece);
        break;
    }
    case 4:
        rtf.insert(at, groupOf(m_corpus.at(m_random.bounded(int(m_corpus.size())))));
        break;
    case 5: { // another number
        qsizetype digit = at;
        while (digit < rtf.size() && (rtf.at(digit) < '0' || rtf.at(digit) > '9'))
            ++digit;
        static constexpr const char *kNumbers[] = {"0", "-1", "1", "9", "32768", "65536", "999999999999"};
        if (digit < rtf.size())
            rtf.replace(digit, 1, kNumbers[m_random.bounded(int(std::size(kNumbers)))]);
        break;
    }
    default:
        rtf.insert(at, kPieces.at(m_random.bounded(int(kPieces.size()))));
        break;
    }
}

QByteArray Mutator::next()
{
    QByteArray rtf = m_corpus.at(m_random.bounded(int(m_corpus.size())));
    if (m_random.bounded(4) == 0) { // only a part of it
        const qsizetype begin = place(rtf);
        rtf = "{\\rtf1 " + rtf.mid(begin, m_random.bounded(1, 2'000));
    }
    for (int changes = m_random.bounded(1, 12); changes > 0; --changes)
        change(rtf);
    rtf.truncate(kMaximumSize);
    return rtf;
}

} // namespace norvane
