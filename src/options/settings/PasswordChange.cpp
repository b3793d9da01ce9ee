#include "options/settings/PasswordChange.h"

#include "platform/Prompts.h"
#include "platform/RuntimeError.h"
#include "shell/internal_error.h"
#include "store/NoteStore.h"

namespace norvane {

bool changePassword(NoteStore &store, Prompts &prompts, const QString &current, const QString &wanted,
                    const QString &confirmed)
{
    const auto tell = [&](const QString &text, int icon) {
        prompts.messageBox(text, icon, kApplicationTitle.toString());
    };
    if (current != store.DatabasePassword) {
        tell(QStringLiteral("Current password is not correct."), Prompts::kExclamation);
        return false;
    }
    if (wanted != confirmed) {
        tell(QStringLiteral("Confirmation field does not match."), Prompts::kExclamation);
        return false;
    }
    try {
        store.checkOpen();
        store.database()->newPassword(current, wanted);
    } catch (const RuntimeError &) {
        tell(QStringLiteral("Error changing Database password."), Prompts::kCritical);
        return false;
    }
    store.DatabasePassword = wanted;
    tell(QStringLiteral("Database password has been changed."), Prompts::kInformation);
    return true;
}

} // namespace norvane
