<?php
// The configuration of every WordPress of the world (wp-config.php). The host that was asked decides the address, the
// folder that WordPress lies in decides the database.
$world_host = $_SERVER['SERVER_NAME'];
define('WP_HOME', "https://$world_host");
define('WP_SITEURL', "https://$world_host");

define('DB_NAME', basename(dirname(ABSPATH)));
define('DB_HOST', 'localhost:' . dirname(ABSPATH, 3) . '/database.sock');
define('DB_USER', 'root');
define('DB_PASSWORD', '');
define('DB_CHARSET', 'utf8mb4');
define('DB_COLLATE', '');
$table_prefix = 'wp_';

foreach (['AUTH', 'SECURE_AUTH', 'LOGGED_IN', 'NONCE'] as $world_purpose) {
    define("{$world_purpose}_KEY", "$world_purpose key of the test world");
    define("{$world_purpose}_SALT", "$world_purpose salt of the test world");
}

// A live site, apart from what would reach out of the world or happen at its own time.
define('WP_ENVIRONMENT_TYPE', 'production');
define('WP_DEFAULT_THEME', 'world');
define('FS_METHOD', 'direct');
define('WP_HTTP_BLOCK_EXTERNAL', true);
define('DISABLE_WP_CRON', true);
define('AUTOMATIC_UPDATER_DISABLED', true);
define('WP_CACHE', is_file(ABSPATH . 'wp-content/advanced-cache.php'));
define('WP_DEBUG', true);
define('WP_DEBUG_DISPLAY', false);

require_once ABSPATH . 'wp-settings.php';
