#include "browser/dialogs/LocationBox.h"

#include "browser/dialogs/WholeCharacters.h"
#include "browser/dialogs/dialog_parts.h"
#include "browser/dialogs/location_cleaning.h"
#include "platform/Prompts.h"

#include <QPointer>
#include <QPushButton>
#include <limits>

namespace norvane {

LocationBox::LocationBox(Prompts &prompts, const QString &name, const QString &buttonName)
    : m_prompts(prompts), m_browse(norvane::browseButton(buttonName, tr("Browse for a file")))
{
    setObjectName(name);
    setAccessibleName(tr("Location"));
    setMaxLength(std::numeric_limits<int>::max());
    setValidator(new WholeCharacters(this));
    connect(this, &QLineEdit::editingFinished, this, &LocationBox::clean);
    connect(m_browse, &QPushButton::clicked, this, &LocationBox::browse);
}

void LocationBox::clean()
{
    const QString location = cleanLocation(text());
    if (location != text())
        setText(location);
}

void LocationBox::browse()
{
    const QPointer<LocationBox> self(this);
    const QString path = m_prompts.openFile(tr("Select File"), tr("All File Types|*.*"));
    if (self && !path.isEmpty())
        setText(cleanLocation(path));
}

} // namespace norvane
