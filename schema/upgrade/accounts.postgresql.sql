-- SPDX-License-Identifier: MIT
-- VnUser: what VnDesk 1.1 keeps of users beside [User]: the hash of the password, wrong passwords, locks.
-- Needed where clsSettings has PasswordScheme = vnPasswordPbkdf2 or LockAfter > 0. Times are UTC. May be run twice.
CREATE TABLE IF NOT EXISTS vnuser (
    usercode integer NOT NULL PRIMARY KEY,
    passwordhash varchar(200),
    failed integer NOT NULL DEFAULT 0,
    firstat timestamp,
    lockeduntil timestamp,
    lastat timestamp,
    lastpc varchar(50),
    mustchange integer NOT NULL DEFAULT 0
);
