#pragma once

#include <QByteArrayView>
#include <optional>
#include <vector>

namespace norvane::rtf {

/// The colours of a document, collected from its colour table.
class ColorTable
{
public:
    /// @param shift where the part stands in 0xRRGGBB
    void setPart(int shift, int value);
    /// Each ";" ends a colour.
    void addText(QByteArrayView text);

    /// 0xRRGGBB; nothing for the automatic colour and for numbers without a colour.
    std::optional<quint32> color(int number) const;

private:
    std::vector<std::optional<quint32>> m_colors;
    std::optional<quint32> m_current;
};

} // namespace norvane::rtf
