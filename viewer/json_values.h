// Values as JSON, both ways. Plain JSON stands for strings, booleans, Null, 32-bit integers and doubles with
// a fraction; everything else is an object with one key that begins with "$".
#pragma once

#include "platform/record_set.h"
#include "platform/value.h"
#include "viewer/json.h"
#include "viewer/object_names.h"

namespace qor::viewer {

/// The value that `json` stands for; objects are made anew. Raises a Mistake for anything that stands for
/// none, at its place.
Value ReadValue(const Json& json, const Place& place, const References& references);
/// The body of a record set: `fields` and `rows`.
Ref<RecordSet> ReadRecordSet(const Json& body, const Place& place, const References& references);
/// An object with readable members.
Ref<Object> ReadObject(const Json& members, const Place& place, const References& references);

/// A day as "YYYY-MM-DD", or with " hh:mm:ss" behind it where `withTime` allows it.
Date ReadDate(const Json& json, const Place& place, bool withTime);
std::int32_t ReadInteger(const Json& json, const Place& place);

/// Writes a value out. Dictionaries, lists and record sets are written whole, other objects by the name that
/// `names` has for them, or else by their class.
Json WriteValue(const Value& value, const ObjectNames& names);

}  // namespace qor::viewer
