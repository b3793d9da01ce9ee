#include "options/settings/preset_categories.h"

namespace norvane {

QStringList presetCategories()
{
    static constexpr QStringView kNames[] = {
        u"Arts",
        u"Books",
        u"Business",
        u"CD",
        u"DVD",
        u"Economy",
        u"Education",
        u"Entertainment",
        u"Folders and Files",
        u"Food",
        u"Freeware",
        u"Government",
        u"Health",
        u"History",
        u"Home",
        u"Insurance",
        u"Internet",
        u"Kids",
        u"Mail",
        u"Maps",
        u"Movies",
        u"Music",
        u"Network Resources",
        u"News",
        u"Office",
        u"Online Banking",
        u"Outdoors",
        u"Personal",
        u"Pictures",
        u"Programs",
        u"Reminder",
        u"Search Engine",
        u"Shareware",
        u"Shopping",
        u"Software",
        u"Sounds",
        u"Sports",
        u"Stock Market",
        u"Television",
        u"Travel",
        u"Weather",
        u"Family",
        u"MP3",
        u"Real Estate",
        u"News Groups",
        u"Finance",
        u"Video",
        u"Chat",
        u"Computers",
        u"Money",
        u"Jobs",
        u"Regional",
        u"Culture",
        u"People",
        u"Autos",
    };
    QStringList names;
    for (const QStringView name : kNames)
        names.append(name.toString());
    return names;
}

} // namespace norvane
