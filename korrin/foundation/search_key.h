#pragma once

// By which member a list of records is searched.

#include <type_traits>

#pragma GCC visibility push(default)

namespace korrin {

/// The member under which an element of a list is looked for: an identifier, an optional one or a
/// list of some. A record that has one says so under its declaration:
///
///   template <>
///   inline constexpr auto searchKey<PlotItem> = &PlotItem::id;
template <class Record>
inline constexpr auto searchKey = nullptr;

/// A record whose lists can be asked for the elements with certain identifiers.
template <class Record>
concept Searchable = std::is_member_object_pointer_v<std::remove_cv_t<decltype(searchKey<Record>)>>;

}  // namespace korrin

#pragma GCC visibility pop
