#pragma once

#include "fakes/FakeEventLoop.h"
#include "fakes/FakeHotKeys.h"
#include "fakes/FakeOptionsHost.h"
#include "fakes/FakePrompts.h"
#include "fakes/FakeShell.h"
#include "fakes/ManualTimer.h"
#include "fakes/MemorySettings.h"
#include "options/HotKeyModel.h"
#include "options/settings/SettingsChange.h"
#include "shell/Forms.h"
#include "store/NoteDatabaseSwitch.h"
#include "store/PasswordDialogModel.h"
#include "unit/store/StoreOnDisk.h"
#include "watcher/WatchSettings.h"

#include <QDir>

namespace norvane::test {

/// An open database with a note, and the folder of a second one.
class OptionsLogic : public StoreOnDisk
{
public:
    OptionsLogic()
    {
        makeDatabase();
        store.open();
        addNote(u"here"_s);
        store.requeryNoteSet();
        QDir().mkpath(otherFolder);
        timer.setInterval(watch.WatchInterval);
        timer.setEnabled(true);
    }

    /// The title of the only note of the open database; empty when there is none.
    QString note()
    {
        return store.NoteSet() && store.NoteSet()->recordCount() > 0
                   ? store.NoteSet()->field(u"FriendlyName"_s).toString()
                   : QString();
    }
    /// What was asked and told, without titles.
    QStringList boxes() const
    {
        QStringList texts;
        for (const fakes::FakePrompts::Box &box : prompts.boxes)
            texts.append(QString::number(box.style) + u' ' + QString(box.text).replace(u"\r\n"_s, u" | "_s));
        return texts;
    }

    const QString otherFolder = folder.filePath(u"Other/"_s);
    const QString otherFile = databaseFileIn(otherFolder);
    QStringList log;
    QString typedPassword; ///< in the password dialog; empty cancels it
    bool editorsMayClose = true;
    fakes::FakePrompts prompts;
    fakes::FakeEventLoop events;
    fakes::FakeShell shell;
    fakes::FakeHotKeys keyboard;
    fakes::MemorySettings settings;
    fakes::ManualTimer timer;
    FormList forms;
    WatchSettings watch;
    HotKeyModel hotKeys{keyboard};
    fakes::FakeOptionsHost host{log};
    NoteDatabaseSwitch databases{
        store, forms, prompts, {[](const QString &) {}, [this] { log.append(u"program ends"_s); }}};
    SettingsChangeParts parts{.database = {.store = store,
                                           .databases = databases,
                                           .settings = settings,
                                           .prompts = prompts,
                                           .events = events,
                                           .timer = timer,
                                           .watch = watch,
                                           .askPassword =
                                               [this](PasswordDialogModel &model) {
                                                   log.append(u"password for "_s + model.path());
                                                   if (!typedPassword.isEmpty())
                                                       model.Command1_Click(typedPassword);
                                               },
                                           .editorsMayClose =
                                               [this] {
                                                   log.append(u"editors"_s);
                                                   return editorsMayClose;
                                               }},
                              .shell = shell,
                              .watch = watch,
                              .hotKeys = hotKeys,
                              .host = host};
};

} // namespace norvane::test
