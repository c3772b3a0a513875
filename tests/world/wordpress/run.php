<?php
// Runs PHP code inside a WordPress: php run.php CORE HOST CODE
require __DIR__ . '/load.php';
eval($argv[3]);
