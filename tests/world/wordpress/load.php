<?php
// Loads a WordPress on the command line, as if its site had been asked: php SCRIPT CORE HOST[/PATH] ...
[, $world_core, $world_address] = $argv;
[$world_host, $world_path] = explode('/', "$world_address/", 2);
$_SERVER['SERVER_NAME'] = $world_host;
$_SERVER['HTTP_HOST'] = $world_host;
$_SERVER['HTTPS'] = 'on';
$_SERVER['REQUEST_METHOD'] = 'GET';
$_SERVER['REQUEST_URI'] = "/$world_path";
$_SERVER['REMOTE_ADDR'] = '127.0.0.1';
require "$world_core/wp-load.php";
