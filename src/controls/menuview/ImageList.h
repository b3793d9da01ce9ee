#pragma once

#include <QIcon>
#include <QSize>
#include <QVector>

namespace norvane {

/// Icons by index, from 0: where a menu's items take theirs from.
class ImageList
{
public:
    virtual ~ImageList() = default;
    /// Null for an index that has no icon.
    virtual QIcon icon(int index) const = 0;
    /// In device-independent pixels.
    virtual QSize iconSize() const { return {16, 16}; }
};

/// An image list of icons that are there already.
class IconList : public ImageList
{
public:
    explicit IconList(QVector<QIcon> icons) : m_icons(std::move(icons)) {}

    QIcon icon(int index) const override { return m_icons.value(index); }

private:
    QVector<QIcon> m_icons;
};

} // namespace norvane
