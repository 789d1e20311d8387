// Mistake: what is wrong in a file that a person wrote, and the place in it where it stands.
#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>

namespace qor::viewer {

/// A place in a JSON file, such as `steps[3].user[0].do[1]`. Each place borrows the one around it, so that
/// walking a file costs nothing; only a mistake turns it into text.
class Place {
 public:
    Place() = default;  // the whole file
    Place Key(std::string_view key) const { return Place(this, key, 0); }
    Place Index(std::size_t index) const { return Place(this, {}, index); }

    /// "" for the whole file.
    std::string Text() const;

 private:
    Place(const Place* around, std::string_view key, std::size_t index)
        : around_(around), key_(key), index_(index) {}

    const Place* around_ = nullptr;
    std::string_view key_;  // null for an index
    std::size_t index_ = 0;
};

class Mistake : public std::exception {
 public:
    Mistake(std::string place, std::string message)
        : place_(std::move(place)), message_(std::move(message)) {}
    Mistake(const Place& place, std::string message) : Mistake(place.Text(), std::move(message)) {}

    const std::string& place() const { return place_; }  // "" where the whole file is meant
    const char* what() const noexcept override { return message_.c_str(); }

 private:
    std::string place_;
    std::string message_;
};

/// A name in quotes, with whatever would break the line escaped.
std::string Quoted(std::string_view name);

}  // namespace qor::viewer
