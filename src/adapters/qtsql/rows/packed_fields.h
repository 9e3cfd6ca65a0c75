// Fields of many rows, kept small.
#pragma once

#include <QVariant>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <forward_list>
#include <memory>
#include <memory_resource>

#include <vexnumkr/value.h>

namespace vexnumkr::qtsql {

/// Fields in the order in which they came, counted from 0. Texts, bytes, integers and NULL, which
/// nearly all are, cost a piece of shared memory instead of an object of their own: allocating,
/// spreading and freeing those is most of what reading a large table would take.
class PackedFields {
 public:
  std::size_t size() const { return all_ == nullptr ? 0 : all_->cells.size(); }

  void add(const QVariant& field);
  /// The field as it was added or set last.
  QVariant at(std::size_t place) const;
  /// The same for the component. Error as for toValue.
  Value value(std::size_t place) const;
  void set(std::size_t place, const QVariant& field);

 private:
  // A text or bytes and how many, an integer and its type, NULL with the number of its type, or
  // what is none of these.
  struct Cell {
    enum class Kind : std::uint8_t { text, bytes, int32, int64, unsigned64, null, other } kind;
    std::uint32_t length;
    union {
      const char16_t* text;
      const char* bytes;
      std::int64_t number;
      std::uint64_t natural;
      QVariant* other;
    };
  };

  Cell packed(const QVariant& field);
  /// A copy that stays where it is.
  template <class Character>
  const Character* kept(const Character* text, std::uint32_t length);

  struct Fields {
    static constexpr std::size_t firstTexts = 1024;

    std::deque<Cell> cells;  // A vector would move all of them whenever it grows.
    std::pmr::monotonic_buffer_resource texts{firstTexts};
    std::forward_list<QVariant> others;
  };
  std::unique_ptr<Fields> all_;  // Once there are any: most statements find none.
};

}  // namespace vexnumkr::qtsql
