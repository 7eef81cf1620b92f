// The user's proxy server, kept from one run to the next: until Pavane_Terminate, and never on disk.
#pragma once

#include "values/storage.h"

namespace brixen::pvn {

// Puts what the last run left into the bag of the next one. Does nothing if that was no proxy server. Needs a
// context.
void PutKeptProxy(T_StorageInterface& bag);

// Keeps host, port, user name and password of a bag after its run, in place of what was kept before; nothing
// if the bag lacks the host or the port. Wipes the password of the bag. Without memory nothing is kept. Needs
// a context.
void KeepProxyOf(T_StorageInterface& bag) noexcept;

} // namespace brixen::pvn
