#pragma once

#include <QComboBox>

namespace norvane {

/// Shows a folder and takes no typing: another one comes from the list of recent folders, or from the
/// program.
class FolderBox : public QComboBox
{
    Q_OBJECT

public:
    FolderBox(const QString &objectName, const QString &accessibleName);

    /// Ends in a separator; empty where there is none yet.
    QString folder() const { return currentText(); }
    void setFolder(const QString &folder);

    void showPopup() override;

signals:
    /// The list of recent folders is opened.
    void dropDown();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace norvane
