<?php
// The configuration of every WordPress of the world (wp-config.php). The folder that WordPress lies in decides the
// database and the kind of site; the host that was asked decides the address, which "newer" and the networks keep in
// their database.
$world_site = basename(dirname(ABSPATH));
$world_host = $_SERVER['SERVER_NAME'];

// Whether the sites of a network have hosts (true) or folders (false) of their own; null where there is no network.
$world_network = ['domains' => true, 'folders' => false][$world_site] ?? null;

// What a proxy that ended TLS says about the request; one that says nothing leaves wp-admin in a circle of redirects
// unless it may do without.
if (($_SERVER['HTTP_X_FORWARDED_PROTO'] ?? '') === 'https') {
    $_SERVER['HTTPS'] = 'on';
}
define('FORCE_SSL_ADMIN', $world_host !== 'unaware.brasslet.test');

if (($world_network === null && $world_site !== 'newer') || defined('WORLD_INSTALLING')) {
    define('WP_HOME', "https://$world_host" . (['below' => '/blog'][$world_site] ?? ''));
    define('WP_SITEURL', "https://$world_host" . (['below' => '/blog', 'apart' => '/wp'][$world_site] ?? ''));
} elseif ($world_network !== null) {
    define('MULTISITE', true);
    define('SUBDOMAIN_INSTALL', $world_network);
    define('DOMAIN_CURRENT_SITE', ['domains' => 'net.brasslet.test', 'folders' => 'folders.brasslet.test'][$world_site]);
    define('PATH_CURRENT_SITE', '/');
    define('SITE_ID_CURRENT_SITE', 1);
    define('BLOG_ID_CURRENT_SITE', 1);
}

define('DB_NAME', $world_site);
define('DB_HOST', 'localhost:' . dirname(ABSPATH, 3) . '/database.sock');
define('DB_USER', 'root');
define('DB_PASSWORD', '');
define('DB_CHARSET', 'utf8mb4');
define('DB_COLLATE', '');
$table_prefix = 'wp_';

// A file of this name stands for a configuration without salts: WordPress then keeps its own in the database.
$world_purposes = is_file(ABSPATH . 'wp-content/no-salts') ? [] : ['AUTH', 'SECURE_AUTH', 'LOGGED_IN', 'NONCE'];
foreach ($world_purposes as $world_purpose) {
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
