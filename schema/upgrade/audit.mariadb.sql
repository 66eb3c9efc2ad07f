-- SPDX-License-Identifier: MIT
-- VnAudit: who has done what, where and when. Needed where clsSettings has Audit = True. Times are UTC. May be run twice.
CREATE TABLE IF NOT EXISTS `VnAudit` (
    `Code` INT NOT NULL AUTO_INCREMENT PRIMARY KEY,
    `At` DATETIME NOT NULL DEFAULT (UTC_TIMESTAMP()),
    `UserCode` INT,
    `UserName` VARCHAR(100),
    `PC` VARCHAR(50),
    `WinUser` VARCHAR(50),
    `Action` VARCHAR(50) NOT NULL,
    `Subject` VARCHAR(255),
    `Before` TEXT,
    `After` TEXT,
    INDEX `VnAuditAt` (`At`)
) CHARACTER SET utf8mb4;
