#pragma once

namespace norvane {

/// The numbers of run-time errors that a user may see. One table, used by every backend.
enum ErrorNumber {
    kErrorInvalidCall = 5,          ///< an argument that makes no sense
    kErrorOverflow = 6,             ///< a number does not fit its 16-bit or 32-bit place
    kErrorSubscript = 9,            ///< a row, column or place that is not there
    kErrorTypeMismatch = 13,        ///< a value of the wrong kind
    kErrorFileNotFound = 53,        ///< a file that should be there is not
    kErrorFileAccess = 75,          ///< a file or folder may not be read or written
    kErrorPathNotFound = 76,        ///< a folder on the way to a file is not there
    kErrorNothingThere = 91,        ///< a member of an object that does not exist was used
    kErrorBadPattern = 93,          ///< a wildcard pattern with a list that does not end
    kErrorNullUse = 94,             ///< Null where there must be a value
    kErrorNoAutomation = 429,       ///< a program that was to be driven is not there
    kErrorDuplicateKey = 457,       ///< a collection has a member of that key already
    kErrorFileFormat = 321,         ///< the file is not of the kind that it should be
    kErrorItemNotFound = 3265,      ///< no such field, table or collection member
    kErrorNoCurrentRecord = 3021,   ///< a record was read or changed where there is none
    kErrorUpdateWithoutEdit = 3020, ///< Update without AddNew or Edit before it
    kErrorRecordDeleted = 3167,     ///< the current record is deleted
    kErrorFieldNotUpdatable = 3164, ///< a field whose value only the engine gives
    kErrorInvalidOperation = 3219,  ///< the object does not allow this
    kErrorDuplicate = 3022,         ///< a value is there already where each may be there once
    kErrorDiskFull = 3026,          ///< no room left on the disk
    kErrorReadOnly = 3027,          ///< the database or object is read-only
    kErrorNotAPassword = 3031,      ///< the database does not open with this password
    kErrorCancelled = 3059,         ///< the user stopped what was going on
    kErrorSyntax = 3075,            ///< a condition or statement does not parse
    kErrorFieldTooLong = 3163,      ///< a text is longer than its field
    kErrorRequired = 3314,          ///< a required field has no value
    kErrorNotZeroLength = 3315,     ///< a field may not hold the empty text
    kErrorFormat = 3343,            ///< the file is not a database of this program
    kErrorLocked = 3356,            ///< another process holds the database
};

} // namespace norvane
