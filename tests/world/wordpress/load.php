<?php
// Loads a WordPress on the command line, as if its site had been asked: php SCRIPT CORE HOST ...
[, $world_core, $world_host] = $argv;
$_SERVER['SERVER_NAME'] = $world_host;
$_SERVER['HTTP_HOST'] = $world_host;
$_SERVER['HTTPS'] = 'on';
$_SERVER['REQUEST_METHOD'] = 'GET';
$_SERVER['REQUEST_URI'] = '/';
$_SERVER['REMOTE_ADDR'] = '127.0.0.1';
require "$world_core/wp-load.php";
