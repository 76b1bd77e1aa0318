// SPDX-License-Identifier: GPL-2.0-or-later
// GAP's kernel, for C++.
#pragma once
#include <gmp.h>

extern "C" {
#include <gap_all.h>
}
