<?php

/**
 * Lists what keeps the names of this site from being published or paid, without asking anybody.
 *
 * @return array[] Of each what is wrong, what to do about it, and a link to the screen that mends it, as HTML; empty
 *                 when no screen does.
 */
function brasslet_obstacles() {
	// Nothing that could be changed on such a site helps.
	if ( brasslet_lies_in_folder_of_network() ) {
		return array( brasslet_folder_obstacle() );
	}
	$found = array();
	// The discovery document sends wallets to the home URL, so that decides, not how this page was asked for.
	if ( 'https' !== wp_parse_url( home_url(), PHP_URL_SCHEME ) ) {
		$found[] = brasslet_https_obstacle();
	}
	if ( ! brasslet_has_permalinks() ) {
		$found[] = brasslet_permalink_obstacle();
	}
	if ( ! class_exists( 'WP_Application_Passwords' ) ) {
		$found[] = array(
			'This WordPress is too old for application passwords.',
			'Update it under Dashboard, Updates.',
			brasslet_link( self_admin_url( 'update-core.php' ), 'Open the updates' ),
		);
		// The filter, not WordPress' own function: that says no behind a proxy that ends TLS, where the login in the
		// body of a request works all the same.
	} elseif ( ! apply_filters( 'wp_is_application_passwords_available', true ) ) {
		$found[] = array(
			'Application passwords are switched off, and Brasslet needs one to publish.',
			'Allow them in the plugin for security that forbids them, or ask your host.',
			'',
		);
	}
	return $found;
}

/**
 * What is wrong with a home URL without https. Where it can be changed depends on where WordPress keeps it.
 *
 * @return string[] See brasslet_obstacles().
 */
function brasslet_https_obstacle() {
	$finding = 'The address of this site does not begin with "https://", and wallets use nothing else.';
	if ( ! is_main_site() ) {
		return array(
			$finding,
			'Once it answers over https, let the administrator of the network change the address under Sites.',
			brasslet_site_link(),
		);
	}
	if ( is_multisite() ) {
		return array(
			$finding,
			'Once it answers over https, ask your host to change the address of the main site in the database.',
			'',
		);
	}
	if ( defined( 'WP_HOME' ) ) {
		return array(
			$finding,
			'Once it answers over https, let WP_HOME and WP_SITEURL in wp-config.php begin with "https://".',
			'',
		);
	}
	return array(
		$finding,
		'Once it answers over https, let both addresses under Settings, General begin with "https://".',
		brasslet_link( admin_url( 'options-general.php' ), 'Open the general settings' ),
	);
}

/**
 * What is wrong with permalinks that do not lead to WordPress.
 *
 * @return string[] See brasslet_obstacles().
 */
function brasslet_permalink_obstacle() {
	return array(
		'Your permalinks do not lead to WordPress.',
		'Under Settings, Permalinks, choose a structure other than "Plain" and without "index.php", and save it.',
		brasslet_link( admin_url( 'options-permalink.php' ), 'Open the permalink settings' ),
	);
}

/**
 * What is wrong with a site in a folder of a network.
 *
 * @return string[] See brasslet_obstacles().
 */
function brasslet_folder_obstacle() {
	return array(
		'This site is a folder of its network, but wallets ask at the root of the host: its names cannot be paid.',
		'Publish names on the main site, or let the administrator of the network give this site its own domain.',
		brasslet_site_link(),
	);
}

/**
 * What is wrong with a network that has sites in folders, as its own page of plugins tells it.
 *
 * @return string[] See brasslet_obstacles().
 */
function brasslet_folder_sites_obstacle() {
	return array(
		'Some sites are folders of this network, but wallets ask at the root of the host: their names cannot be paid.',
		'Publish names on the main site, or give those sites domains of their own under Sites.',
		brasslet_link( network_admin_url( 'sites.php' ), 'Open the sites' ),
	);
}

/**
 * Says whether this site lies in a folder of a network. Then the root of its host, where wallets ask, is another site.
 *
 * @return bool
 */
function brasslet_lies_in_folder_of_network() {
	$path = brasslet_string( wp_parse_url( home_url(), PHP_URL_PATH ) );
	return ! is_main_site() && '' !== trim( $path, '/' );
}

/**
 * Says whether the network has sites in folders, apart from its main site.
 *
 * @return bool
 */
function brasslet_has_folder_sites() {
	$folders = get_sites(
		array(
			'fields'       => 'ids',
			'number'       => 1,
			'network_id'   => get_current_network_id(),
			'path__not_in' => array( '/', get_network()->path ),
			'archived'     => 0,
			'deleted'      => 0,
			'spam'         => 0,
		)
	);
	return count( $folders ) > 0;
}

/**
 * A link to the screen of the network that changes the address of this site.
 *
 * @return string HTML; empty for a user who may not see that screen.
 */
function brasslet_site_link() {
	$screen = network_admin_url( 'site-info.php?id=' . get_current_blog_id() );
	return current_user_can( 'manage_sites' ) ? brasslet_link( $screen, 'Open this site in the network' ) : '';
}

/**
 * A link.
 *
 * @param string $url  Where to.
 * @param string $text What it says.
 * @return string HTML.
 */
function brasslet_link( $url, $text ) {
	return sprintf( '<a href="%s">%s</a>', esc_url( $url ), esc_html( $text ) );
}
