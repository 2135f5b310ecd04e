#include "base/failure.h"

#include <utility>

#include "base/utf8.h"

namespace rulemesh {

namespace {

TextView DefaultDescription(FailureCode code)
{
    switch (code) {
    case FailureCode::InvalidProcedureCall:
        return u"Invalid procedure call or argument";
    case FailureCode::Overflow:
        return u"Overflow";
    case FailureCode::OutOfMemory:
        return u"Out of memory";
    case FailureCode::SubscriptOutOfRange:
        return u"Subscript out of range";
    case FailureCode::TypeMismatch:
        return u"Type mismatch";
    case FailureCode::FileNotFound:
        return u"File not found";
    case FailureCode::PathFileAccess:
        return u"Path/File access error";
    case FailureCode::PathNotFound:
        return u"Path not found";
    case FailureCode::ObjectVariableNotSet:
        return u"Object variable not set";
    case FailureCode::InvalidPropertyValue:
        return u"Invalid property value";
    case FailureCode::InvalidPropertyArrayIndex:
        return u"Invalid property array index";
    case FailureCode::IndexOutOfBounds:
        return u"Index out of bounds";
    }
    return u"Unknown failure";
}

constexpr std::size_t LongestQuoted = 60;

} // namespace

Text Quoted(TextView value)
{
    return u"\"" + Text(value.substr(0, LongestQuoted)) + (value.size() > LongestQuoted ? u"...\"" : u"\"");
}

Failure::Failure(FailureCode code) : Failure(code, Text(DefaultDescription(code))) {}

Failure::Failure(FailureCode code, Text description)
    : code_(code), description_(std::move(description)), what_(ToUtf8(description_))
{
}

} // namespace rulemesh
