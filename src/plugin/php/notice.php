<?php

/**
 * Tells on the plugins page, where activation leads, and on the plugin's own, what keeps names from being published or
 * paid as things stand.
 *
 * Asks nobody and keeps nothing, so that it is gone as soon as everything is mended.
 */
function brasslet_notice() {
	$screen     = get_current_screen();
	$page       = $screen ? $screen->id : '';
	$on_network = 'plugins-network' === $page && is_plugin_active_for_network( plugin_basename( __FILE__ ) );
	$is_shown   = in_array( $page, array( 'plugins', 'settings_page_brasslet' ), true ) || $on_network;
	if ( ! $is_shown || ! current_user_can( 'manage_options' ) ) {
		return;
	}
	$obstacles = brasslet_obstacles();
	if ( $on_network && brasslet_has_folder_sites() ) {
		$obstacles[] = brasslet_folder_sites_obstacle();
	}
	if ( count( $obstacles ) > 0 ) {
		echo '<div class="notice notice-warning">'
			. '<p><strong>Brasslet: payment names cannot be published or paid as things stand.</strong></p>';
		foreach ( $obstacles as list( $finding, $advice, $link ) ) {
			// phpcs:ignore WordPress.Security.EscapeOutput -- brasslet_link() has escaped the link.
			echo '<p>' . esc_html( $finding . ' ' . $advice ) . ' ' . $link . '</p>';
		}
		echo '</div>';
	}
}
