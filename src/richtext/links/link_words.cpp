#include "richtext/links/link_words.h"

namespace norvane::links {

bool isUrlWord(QStringView word)
{
    for (const QStringView prefix : {u"https:", u"http:", u"www.", u"mailto:"}) {
        if (word.startsWith(prefix, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

bool isEmailWord(QStringView word)
{
    return word.contains(u'@');
}

QStringList addressesToOpen(const QString &word)
{
    QStringList addresses;
    if (isUrlWord(word))
        addresses += word.startsWith(u"www.", Qt::CaseInsensitive) ? QStringLiteral("http://") + word : word;
    if (isEmailWord(word))
        addresses += QStringLiteral("mailto:") + word;
    return addresses;
}

} // namespace norvane::links
