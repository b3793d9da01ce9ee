#pragma once

#include "richtext/rtf/operations.h"

#include <QDialog>
#include <optional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace norvane {

class FileSystem;
class Prompts;

/// The dialog that makes an embedded object of a file: a picture is shown as itself, any other file,
/// or a picture if the user wants it so, as the icon of its type with a name beneath. It inserts
/// nothing itself.
class frmOle : public QDialog
{
    Q_OBJECT

public:
    /// A larger file is refused, in bytes.
    static constexpr qint64 kLargestFile = qint64(16) << 20;

    /// What the text has left for an object.
    struct Room
    {
        qint64 bytes = kLargestFile;
        int width = 0; ///< pixels of its column
    };

    frmOle(FileSystem &files, Prompts &prompts, Room room, QWidget *parent = nullptr);

    /// The holder: the object, as the picture that shows it; nothing when there is none, or the
    /// dialog was cancelled.
    std::optional<rtf::Picture> OLE1() const;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void arrange();
    void chooseFile();
    void take(const QString &path);
    rtf::Picture shown() const;
    void showPreview();

    FileSystem &m_files;
    Prompts &m_prompts;
    Room m_room;
    QString m_fileName; ///< of the file, without its folder; empty while there is none
    QByteArray m_bytes;
    std::optional<rtf::Picture> m_picture; ///< of a file that is one
    QLineEdit *m_file;                     ///< `Text1`
    QPushButton *m_browse;                 ///< `Command3`
    QCheckBox *m_asIcon;                   ///< `Check1`
    QLabel *m_nameCaption;
    QLineEdit *m_name;     ///< `Text2`
    QLabel *m_preview;     ///< `OLE1`
    QLabel *m_description; ///< `Label1`
    QPushButton *m_ok;     ///< `Command1`
    QPushButton *m_cancel; ///< `Command2`
};

} // namespace norvane
