#pragma once

#include <QString>
#include <QStringList>

/// Links are not stored in a document: they are words that look like addresses. Whatever these
/// functions say of positions counts UTF-16 units of a text whose paragraphs end with CR LF.
namespace norvane::links {

/// A stretch of a text.
struct Span
{
    int from = 0;
    int length = 0;

    bool operator==(const Span &) const = default;
};

/// Whether a text begins like a web or mail address: "https:", "http:", "www." or "mailto:", in
/// whatever case.
bool isUrlWord(QStringView word);
/// Whether it holds an "@".
bool isEmailWord(QStringView word);

/// What a click on a word opens, in that order. The web and the mail side are asked independently:
/// a word may open twice, or not at all. An address without a scheme gets one.
QStringList addressesToOpen(const QString &word);

} // namespace norvane::links
