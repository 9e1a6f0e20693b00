#pragma once
// The host's constants under the host's own names.

#include <cstdint>

namespace vellumark::host {

enum MsoTriState : std::int32_t { msoTrue = -1, msoFalse = 0, msoTriStateMixed = -2 };

enum PpSelectionType : std::int32_t {
  ppSelectionNone = 0,
  ppSelectionSlides = 1,
  ppSelectionShapes = 2,
  ppSelectionText = 3
};

enum MsoShapeType : std::int32_t {
  msoAutoShape = 1,
  msoCallout = 2,
  msoChart = 3,
  msoFreeform = 5,
  msoGroup = 6,
  msoEmbeddedOLEObject = 7,
  msoLine = 9,
  msoLinkedOLEObject = 10,
  msoLinkedPicture = 11,
  msoPicture = 13,
  msoPlaceholder = 14,
  msoMedia = 16,
  msoTextBox = 17,
  msoTable = 19,
  msoIgxGraphic = 24
};

enum MsoAutoShapeType : std::int32_t {
  msoShapeMixed = -2,
  msoShapeRectangle = 1,
  msoShapeRoundedRectangle = 5,
  msoShapeOval = 9,
  msoShapeRightArrow = 33,
  msoShapeLeftArrow = 34,
  msoShapeUpArrow = 35,
  msoShapeDownArrow = 36,
  msoShapeLeftRightArrow = 37,
  msoShapeUpDownArrow = 38,
  msoShapeStripedRightArrow = 49,
  msoShapeNotchedRightArrow = 50,
  msoShapePentagon = 51,
  msoShapeChevron = 52,
  msoShapeNotPrimitive = 138
};

enum PpViewType : std::int32_t {
  ppViewSlide = 1,
  ppViewSlideMaster = 2,
  ppViewNotesPage = 3,
  ppViewHandoutMaster = 4,
  ppViewNotesMaster = 5,
  ppViewOutline = 6,
  ppViewSlideSorter = 7,
  ppViewTitleMaster = 8,
  ppViewNormal = 9,
  ppViewThumbnails = 11,
  ppViewMasterThumbnails = 12
};

enum PpAutoSize : std::int32_t { ppAutoSizeMixed = -2, ppAutoSizeNone = 0, ppAutoSizeShapeToFitText = 1 };

enum PpSlideLayout : std::int32_t {
  ppLayoutTitle = 1,
  ppLayoutText = 2,
  ppLayoutTitleOnly = 11,
  ppLayoutBlank = 12,
  ppLayoutCustom = 32
};

enum MsoZOrderCmd : std::int32_t {
  msoBringToFront = 0,
  msoSendToBack = 1,
  msoBringForward = 2,
  msoSendBackward = 3
};
enum MsoFlipCmd : std::int32_t { msoFlipHorizontal = 0, msoFlipVertical = 1 };
enum PpParagraphAlignment : std::int32_t {
  ppAlignLeft = 1,
  ppAlignCenter = 2,
  ppAlignRight = 3,
  ppAlignJustify = 4
};
enum PpTabStopType : std::int32_t { ppTabStopLeft = 1, ppTabStopCenter = 2, ppTabStopRight = 3 };
enum PpPlaceholderType : std::int32_t { ppPlaceholderTitle = 1, ppPlaceholderBody = 2 };
enum MsoTextOrientation : std::int32_t { msoTextOrientationHorizontal = 1 };
enum MsoFileDialogType : std::int32_t { msoFileDialogOpen = 1, msoFileDialogSaveAs = 2 };
enum PpSaveAsFileType : std::int32_t { ppSaveAsDefault = 11 };
enum PpColorSchemeIndex : std::int32_t { ppBackground = 1, ppAccent3 = 8 };
enum MsoAnimType : std::int32_t { msoAnimTypeMotion = 1 };
enum MsoAnimEffect : std::int32_t { msoAnimEffectPathLeft = 120 };
enum MsoAnimTriggerType : std::int32_t { msoAnimTriggerOnPageClick = 1 };
enum MsoVerticalAnchor : std::int32_t { msoAnchorTop = 1, msoAnchorMiddle = 3, msoAnchorBottom = 4 };
enum MsoControlType : std::int32_t {
  msoControlButton = 1,
  msoControlEdit = 2,
  msoControlDropdown = 3,
  msoControlPopup = 10
};
enum MsoButtonState : std::int32_t { msoButtonUp = 0, msoButtonDown = -1, msoButtonMixed = 2 };

}  // namespace vellumark::host
