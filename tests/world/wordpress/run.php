<?php
// Runs PHP code inside a WordPress: php run.php CORE HOST[/PATH] CODE
require __DIR__ . '/load.php';
eval($argv[3]);
