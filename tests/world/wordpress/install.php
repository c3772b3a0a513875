<?php
// Installs a WordPress into its empty database: php install.php CORE HOST. The administrator is "owner", the user
// "editor" is none; their passwords are their names. A network gets its tables, and "owner" for its super admin.
define('WP_INSTALLING', true);
define('WORLD_INSTALLING', true);
require __DIR__ . '/load.php';
require_once ABSPATH . 'wp-admin/includes/upgrade.php';

// With the permalinks stored first, the installation does not ask the site, which is not up yet, whether they work.
add_action('populate_options', fn() => add_option('permalink_structure', '/%postname%/'));
add_filter('pre_wp_mail', '__return_true');

wp_install('Brasslet test site', 'owner', 'owner@brasslet.test', true, '', 'owner');
wp_insert_user([
    'user_login' => 'editor',
    'user_pass' => 'editor',
    'user_email' => 'editor@brasslet.test',
    'role' => 'editor',
]);

global $wp_rewrite;
$wp_rewrite->init();
$wp_rewrite->flush_rules();

if ($world_network !== null) {
    foreach ($wpdb->tables('ms_global') as $name => $table) {
        $wpdb->$name = $table;
    }
    install_network();
    $made = populate_network(1, $world_host, 'owner@brasslet.test', 'Brasslet test network', '/', $world_network);
    // It cannot see whether every name below the host leads here: the site is not up yet.
    if (is_wp_error($made) && $made->get_error_code() !== 'no_wildcard_dns') {
        fwrite(STDERR, $made->get_error_message() . "\n");
        exit(1);
    }
}
