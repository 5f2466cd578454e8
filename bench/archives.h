// Plain structs through the XML archives of other libraries, each as it is meant to be used: a struct is an
// object with named members, a list is a vector. Text that is no such document throws.
#pragma once

#include <string>

namespace hx::bench {

template <class Root>
std::string WriteCereal(const Root& root);
template <class Root>
void ReadCereal(std::string text, Root& root);

// With wide strings in the struct, the wide archives.
template <class Root>
typename Root::Text WriteBoost(const Root& root);
template <class Root>
void ReadBoost(typename Root::Text text, Root& root);

}  // namespace hx::bench
