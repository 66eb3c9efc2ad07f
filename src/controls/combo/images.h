// SPDX-License-Identifier: MIT
// Numbers of the pictures of the controls; the resource script reads this file too.
#pragma once

#define kBitmapDataCombo 111
