// Registers a public operation of KW_FYTable as a script statement, with the
// argument conversion and result printing derived from its signature:
//
//   AddMethod(r, "GetCellText", &KW_FYTable::GetCellText);
//   AddMethod(r, "CallOtherFL", &KW_FYTable::CallOtherFL, Defaults(int16_t{0}));
//   AddProperty(r, "ShowBorder", &KW_FYTable::ShowBorder, &KW_FYTable::ShowBorder);
//
// Defaults gives the values of trailing optional parameters, which a script
// may then omit. A property statement without argument prints the Get
// result; with one argument it runs the Let.
#pragma once

#include <cstddef>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "kwfy/kw_fytable.h"
#include "script/registry.h"

namespace kwfy::script {

template <class... D>
struct Defaults {
    explicit Defaults(D... d) : values(std::move(d)...) {}
    std::tuple<D...> values;
};
Defaults()->Defaults<>;

namespace bind_detail {

template <class T>
using Plain = std::remove_cvref_t<T>;

// The usage text of a parameter list, the last `optional` in brackets.
template <class... A>
std::string Params(size_t optional) {
    const char* names[] = {ArgTraits<Plain<A>>::kName..., ""};
    std::string out;
    size_t n = sizeof...(A);
    for (size_t i = 0; i < n; ++i) {
        if (i) out += ' ';
        out += (i >= n - optional ? std::string("[") + names[i] + "]" : names[i]);
    }
    return out;
}

template <class... A>
struct Args {
    template <size_t I, class D>
    static auto One(const Call& call, const D& defaults) {
        using T = Plain<std::tuple_element_t<I, std::tuple<A...>>>;
        constexpr size_t required = sizeof...(A) - std::tuple_size_v<D>;
        if constexpr (I >= required) {
            if (I >= call.Count()) return T(std::get<I - required>(defaults));
        }
        return call.Get<T>(I);
    }
    // Braced initialisation converts the arguments left to right, so a usage
    // message names the first bad one.
    template <class D, size_t... I>
    static std::tuple<Plain<A>...> All(const Call& call, const D& defaults,
                                       std::index_sequence<I...>) {
        return std::tuple<Plain<A>...>{One<I>(call, defaults)...};
    }
};

template <class R, class... A, class F, class... D>
void Add(Registry& r, std::string name, F invoke, Defaults<D...> defaults) {
    static_assert(sizeof...(D) <= sizeof...(A), "more defaults than parameters");
    std::string params = Params<A...>(sizeof...(D));
    r.Add(std::move(name), std::move(params), sizeof...(A) - sizeof...(D), sizeof...(A),
          [invoke, defaults](Call& call) {
              auto args = Args<A...>::All(call, defaults.values, std::index_sequence_for<A...>{});
              if constexpr (std::is_void_v<R>) {
                  std::apply([&](auto&... a) { invoke(call.Control(), a...); }, args);
              } else {
                  call.Result(std::apply(
                      [&](auto&... a) -> Plain<R> { return invoke(call.Control(), a...); }, args));
              }
          });
}

}  // namespace bind_detail

template <class R, class... A, class... D>
void AddMethod(Registry& r, std::string name, R (KW_FYTable::*fn)(A...),
               Defaults<D...> defaults = Defaults<>()) {
    bind_detail::Add<R, A...>(
        r, std::move(name), [fn](KW_FYTable& c, auto&... a) { return (c.*fn)(a...); },
        std::move(defaults));
}

template <class R, class... A, class... D>
void AddMethod(Registry& r, std::string name, R (KW_FYTable::*fn)(A...) const,
               Defaults<D...> defaults = Defaults<>()) {
    bind_detail::Add<R, A...>(
        r, std::move(name), [fn](KW_FYTable& c, auto&... a) { return (c.*fn)(a...); },
        std::move(defaults));
}

template <class T>
void AddProperty(Registry& r, std::string name, T (KW_FYTable::*get)() const,
                 void (KW_FYTable::*let)(T)) {
    std::string params = std::string("[") + ArgTraits<bind_detail::Plain<T>>::kName + "]";
    r.Add(std::move(name), std::move(params), 0, 1, [get, let](Call& call) {
        if (call.Count() == 0)
            call.Result((call.Control().*get)());
        else
            (call.Control().*let)(call.Get<bind_detail::Plain<T>>(0));
    });
}

}  // namespace kwfy::script
