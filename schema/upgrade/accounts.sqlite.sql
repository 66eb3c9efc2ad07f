-- SPDX-License-Identifier: MIT
-- VnUser: what VnDesk 1.1 keeps of users beside [User]: the hash of the password, wrong passwords, locks.
-- Needed where clsSettings has PasswordScheme = vnPasswordPbkdf2 or LockAfter > 0. Times are UTC. May be run twice.
CREATE TABLE IF NOT EXISTS [VnUser] (
    [UserCode] INTEGER NOT NULL PRIMARY KEY,
    [PasswordHash] VARCHAR(200),
    [Failed] INTEGER NOT NULL DEFAULT 0,
    [FirstAt] TIMESTAMP,
    [LockedUntil] TIMESTAMP,
    [LastAt] TIMESTAMP,
    [LastPC] VARCHAR(50),
    [MustChange] INTEGER NOT NULL DEFAULT 0
);
