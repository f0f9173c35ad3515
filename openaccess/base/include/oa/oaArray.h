#pragma once

#include "oaBaseTypes.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace OpenAccess_4 {

/// A growing row of values. Its room (getSize) and its number of elements are separate: a client
/// may make room, assign through operator[] and then call setNumElements.
template <class T>
class oaArrayBase {
public:
    oaArrayBase() = default;
    /// Makes room for `size` elements; there are none yet.
    explicit oaArrayBase(oaUInt4 size) : room_(size) {}
    /// Copies `numElements` values.
    oaArrayBase(const T* elements, oaUInt4 numElements) { set(elements, numElements); }
    oaArrayBase(const oaArrayBase&) = default;
    oaArrayBase(oaArrayBase&& other) noexcept
        : room_(std::move(other.room_)), numElements_(std::exchange(other.numElements_, 0)) {
        other.room_.clear();
    }
    oaArrayBase& operator=(const oaArrayBase&) = default;
    oaArrayBase& operator=(oaArrayBase&& other) noexcept {
        oaArrayBase moved(std::move(other));
        room_.swap(moved.room_);
        std::swap(numElements_, moved.numElements_);
        return *this;
    }

    /// The element at `i`, which lies below getSize().
    const T& get(oaUInt4 i) const { return room_[i]; }
    T& get(oaUInt4 i) { return room_[i]; }
    const T& operator[](oaUInt4 i) const { return room_[i]; }
    T& operator[](oaUInt4 i) { return room_[i]; }

    /// The elements one after the other, valid until the room changes.
    const T* getElements() const { return room_.data(); }
    T* getElements() { return room_.data(); }

    oaUInt4 getNumElements() const { return numElements_; }
    /// Changes the number of elements, with more room when it is needed.
    void setNumElements(oaUInt4 numElements) {
        if (numElements > getSize())
            setSize(numElements);
        numElements_ = numElements;
    }

    /// The number of elements that there is room for.
    oaUInt4 getSize() const { return static_cast<oaUInt4>(room_.size()); }
    /// Changes the room; keeps the elements that fit, or none when `saveElements` is false.
    void setSize(oaUInt4 size, oaBoolean saveElements = true) {
        if (!saveElements) {
            room_.clear();
            numElements_ = 0;
        }
        room_.resize(size);
        numElements_ = std::min(numElements_, size);
    }

    /// Replaces the elements by `numElements` values, which may lie in this array.
    void set(const T* elements, oaUInt4 numElements) {
        std::vector<T> copy(elements, elements + numElements);
        if (copy.size() < room_.size())
            copy.resize(room_.size());
        room_ = std::move(copy);
        numElements_ = numElements;
    }

private:
    std::vector<T> room_;
    oaUInt4 numElements_ = 0;
};

/// A row of values that grows at its end.
template <class T>
class oaArray : public oaArrayBase<T> {
public:
    using oaArrayBase<T>::oaArrayBase;

    void append(const T& element) {
        const T copy(element); // it may lie in this array, whose room may move
        const oaUInt4 count = this->getNumElements();
        if (count == this->getSize())
            this->setSize(std::max<oaUInt4>(8, count + count / 2));
        this->setNumElements(count + 1);
        (*this)[count] = copy;
    }

    void append(const oaArray& elements) {
        const oaUInt4 numAdded = elements.getNumElements();
        for (oaUInt4 i = 0; i < numAdded; ++i)
            append(elements[i]);
    }

    /// The index of the first equal element; oacNullIndex when there is none.
    oaUInt4 find(const T& element) const {
        for (oaUInt4 i = 0; i < this->getNumElements(); ++i) {
            if ((*this)[i] == element)
                return i;
        }
        return oacNullIndex;
    }

    /// Removes the first equal element; those behind it move up. Answers whether there was one.
    oaBoolean remove(const T& element) {
        const oaUInt4 index = find(element);
        if (index == oacNullIndex)
            return false;
        T* const elements = this->getElements();
        const oaUInt4 count = this->getNumElements();
        std::move(elements + index + 1, elements + count, elements + index);
        this->setNumElements(count - 1);
        return true;
    }
};

/// A row of values in which none occurs twice, as long as add() alone fills it.
template <class T>
class oaSubset : public oaArray<T> {
public:
    using oaArray<T>::oaArray;

    /// Appends the element unless it is there already.
    void add(const T& element) {
        if (!includes(element))
            this->append(element);
    }

    oaBoolean includes(const T& element) const { return this->find(element) != oacNullIndex; }
};

} // namespace OpenAccess_4
