#pragma once

#include "controls/menuview/ImageList.h"

namespace norvane {

/// Places in the list of icons that the menus of the main window and of the notes share.
enum MenuImage {
    kImageNew,
    kImageOpen,
    kImageSave,
    kImageDelete,
    kImagePrint,
    kImageImportExport,
    kImageProperties,
    kImageClose,
    kImageImport,
    kImageExport,
    kImageOrganizer,
    kImageCapture,
    kImageCaptureWindow,
    kImageCaptureDesktop,
    kImageMail,
    kImageImportNotes,
};

/// That list; its icons are drawn in the desktop's colours.
IconList sharedMenuImages();

} // namespace norvane
