#include "richtext/rtf/ColorTable.h"

#include "richtext/rtf/limits.h"

namespace norvane::rtf {

void ColorTable::setPart(int shift, int value)
{
    const quint32 part = quint32(qBound(0, value, 255));
    m_current = (m_current.value_or(0) & ~(quint32(0xFF) << shift)) | part << shift;
}

void ColorTable::addText(QByteArrayView text)
{
    for (const char c : text) {
        if (c != ';')
            continue;
        if (m_colors.size() < size_t(kMaximumColors))
            m_colors.push_back(m_current);
        m_current.reset();
    }
}

std::optional<quint32> ColorTable::color(int number) const
{
    return number >= 0 && size_t(number) < m_colors.size() ? m_colors[size_t(number)] : std::nullopt;
}

} // namespace norvane::rtf
