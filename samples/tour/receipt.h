// SPDX-License-Identifier: MIT
// The form for money that a customer brings: who it is, how much, and the amount in words as it is
// printed on paper.
#pragma once
#include <string>

#include "vndesk_client.h"

struct Receipt {
    std::wstring customer, name; // the customer's code is empty when the user has cancelled
    std::wstring amount, words;
};

// Shows the form above a window and returns when it is closed. Customers are looked up as the
// settings say, which may be null.
Receipt AskForReceipt(HWND owner, const std::wstring& connect, ISettings* settings);
