#pragma once

#include <QByteArray>
#include <QList>
#include <QRandomGenerator>

namespace norvane {

/// Damages rich text: bytes, words, groups, pieces of other documents. The same seed damages the
/// same way.
class Mutator
{
public:
    Mutator(QList<QByteArray> corpus, quint32 seed) : m_corpus(std::move(corpus)), m_random(seed) {}

    QByteArray next();

private:
    void change(QByteArray &rtf);
    qsizetype place(const QByteArray &rtf);
    QByteArray groupOf(const QByteArray &rtf);

    QList<QByteArray> m_corpus;
    QRandomGenerator m_random;
};

} // namespace norvane
