#pragma once

namespace velmora {
namespace sdk {
namespace integration {

// These values cross the boundary to the engine as plain integers.

/// What a message box shows and which buttons it offers.
enum MessageBoxType_e : int {
    MessageBoxType_Error = 0,
    MessageBoxType_Warning = 1,
    MessageBoxType_Information = 2,
    MessageBoxType_OkCancel = 3,
    MessageBoxType_YesNo = 4,
    MessageBoxType_YesNoCancel = 5,
    MessageBoxType_WarningOkCancel = 6
};

/// What a person answered to a message box.
enum MessageBoxReply_e : unsigned {
    MessageBoxReply_Yes = 0,
    MessageBoxReply_No = 1,
    MessageBoxReply_Cancel = 2,
    MessageBoxReply_Ok = 3,
    MessageBoxReply_Error = 255 ///< no box was shown, or it was closed by other means
};

/// What a file dialog is for. Only the value 3 allows more than one file, all of which must exist;
/// with every other value, 2 included, one file is asked for and a new name can be typed as well. None
/// asks for a folder.
enum SelectFileOption_e : int {
    SelectFileOption_ReadSingleFile = 0,
    SelectFileOption_WriteFile = 1,
    SelectFileOption_ReadMultipleFiles = 3
};

/// The cursors that the engine asks for.
enum CursorStyle_e : int {
    CursorStyle_Undefined = 0,
    CursorStyle_StandardArrow = 1,
    CursorStyle_Adjustor = 2,
    CursorStyle_Translate = 3,
    CursorStyle_Rotate = 4,
    CursorStyle_Zoom = 5,
    CursorStyle_Cross = 6,
    CursorStyle_UpperLeftBracket = 7,
    CursorStyle_UpperRightBracket = 8,
    CursorStyle_LeftBracket = 9,
    CursorStyle_LowerLeftBracket = 10,
    CursorStyle_LowerRightBracket = 11,
    CursorStyle_RightBracket = 12,
    CursorStyle_BottomBracket = 13,
    CursorStyle_TopBracket = 14,
    CursorStyle_UpDown = 15,
    CursorStyle_LeftRight = 16,
    CursorStyle_Waiting = 17,
    CursorStyle_LightSource = 18,
    CursorStyle_OpenHand = 19,
    CursorStyle_ClosedHand = 20
};

/// What part of a page an exported image shows.
enum ExportRegion_e { ExportRegion_CurrentFrame = 0, ExportRegion_Page = 1, ExportRegion_WorkArea = 2 };

/// How an exported image is drawn. Every value other than 1 means software.
enum ImageRenderingStrategy_e : int { ImageRenderingStrategy_Software = 0, ImageRenderingStrategy_Hardware = 1 };

} // namespace integration
} // namespace sdk
} // namespace velmora
