<?php
// Adds a second site to a network: php second_site.php CORE HOST SECOND_HOST PATH
require __DIR__ . '/load.php';
[, , , $domain, $path] = $argv;

$id = wpmu_create_blog($domain, $path, 'Second site', get_user_by('login', 'owner')->ID);
if (is_wp_error($id)) {
    fwrite(STDERR, $id->get_error_message() . "\n");
    exit(1);
}
// WordPress gives a new host of a network addresses without https.
switch_to_blog($id);
add_user_to_blog($id, get_user_by('login', 'editor')->ID, 'editor');
foreach (['home', 'siteurl'] as $address) {
    update_option($address, untrailingslashit("https://$domain$path"));
}
