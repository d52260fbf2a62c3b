#pragma once

namespace velmora::engine::style {

/// What reading or writing a style value answers. A write answers `StyleCode_Ok` only when it
/// changed the value; a read answers `StyleCode_Ok` only when there is a value.
enum StyleCode_e {
    StyleCode_Ok = 0,
    StyleCode_AlreadySet = 1,    ///< write: the value was there already; nothing changed
    StyleCode_UnknownPath = 2,   ///< no such path, or a macro identifier that names no word
    StyleCode_WrongType = 3,     ///< the path holds a value of another type
    StyleCode_OutOfRange = 4,    ///< write: the value is not allowed for this path
    StyleCode_MissingValue = 5,  ///< the argument list carries no "IValue", "DValue" or "SValue" that fits
    StyleCode_NotSupported = 6,  ///< an offset, a set or an assignment that this path does not know
    StyleCode_ReadFailed = 7,    ///< read: there is no value to be had now
    StyleCode_NoArgumentList = 8 ///< null was given for the argument list
};

} // namespace velmora::engine::style
