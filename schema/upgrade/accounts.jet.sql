-- SPDX-License-Identifier: MIT
-- VnUser: what VnDesk 1.1 keeps of users beside [User]: the hash of the password, wrong passwords, locks.
-- Needed where clsSettings has PasswordScheme = vnPasswordPbkdf2 or LockAfter > 0. Times are UTC. Run twice, the second
-- run is refused (the table is there) and changes nothing.
CREATE TABLE [VnUser] (
    [UserCode] LONG NOT NULL CONSTRAINT [VnUserKey] PRIMARY KEY,
    [PasswordHash] TEXT(200),
    [Failed] LONG NOT NULL,
    [FirstAt] DATETIME,
    [LockedUntil] DATETIME,
    [LastAt] DATETIME,
    [LastPC] TEXT(50),
    [MustChange] LONG NOT NULL
);
