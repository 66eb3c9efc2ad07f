/* SPDX-License-Identifier: MIT */
/* Numbers of the form in tour.rc. */
#pragma once
#define IDD_RECEIPT 100
#define IDC_CODE 101
#define IDC_NAME 102
#define IDC_AMOUNT 103
#define IDC_WORDS 104
