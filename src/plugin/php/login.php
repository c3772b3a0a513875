<?php

/**
 * Lets an administrator through whose login stands in the request's JSON body.
 *
 * WordPress asks this again for each method of the route when it lists them in the reply; the login is tried once.
 *
 * @param WP_REST_Request $request The request.
 * @return true|WP_Error True, with the administrator as current user, or the refusal.
 */
function brasslet_allow( $request ) {
	static $asked   = null;
	static $verdict = null;
	if ( $asked !== $request ) {
		$verdict = brasslet_try_login( $request );
		$asked   = $request;
	}
	return $verdict;
}

/**
 * Tries the login of a request's JSON body.
 *
 * The body is checked here and not left to WordPress' own authentication, because the headers that it relies on may
 * never arrive. What the site has decided about application passwords holds here too, and its plugins see the login.
 *
 * @param WP_REST_Request $request The request.
 * @return true|WP_Error True, with the administrator as current user, or the refusal.
 */
function brasslet_try_login( $request ) {
	$params = brasslet_json( $request );
	$login  = trim( brasslet_string( $params['login_user'] ?? '' ) );
	$pass   = brasslet_string( $params['login_pass'] ?? '' );
	if ( '' === $login || '' === $pass ) {
		return brasslet_error( 'brasslet_login', 'Add the WordPress user and application password.', 401 );
	}
	// Not core's function of this name: behind a proxy that ends TLS it says no, because it sees no https.
	// phpcs:ignore WordPress.NamingConventions.PrefixAllGlobals -- a filter of WordPress.
	$available = apply_filters( 'wp_is_application_passwords_available', true );
	if ( ! class_exists( 'WP_Application_Passwords' ) || ! $available ) {
		return brasslet_no_application_passwords();
	}
	$user = get_user_by( 'login', $login );
	if ( ! $user && is_email( $login ) ) {
		$user = get_user_by( 'email', $login );
	}
	if ( ! $user ) {
		return brasslet_failed_login(
			brasslet_error(
				'invalid_username',
				'WordPress does not know that user. Use the username from the profile page.',
				401
			)
		);
	}
	// phpcs:ignore WordPress.NamingConventions.PrefixAllGlobals -- a filter of WordPress.
	if ( ! apply_filters( 'wp_is_application_passwords_available_for_user', true, $user ) ) {
		return brasslet_failed_login( brasslet_no_application_passwords() );
	}
	$refusal = brasslet_check_password( $user, $pass );
	if ( is_wp_error( $refusal ) ) {
		return brasslet_failed_login( $refusal );
	}
	if ( ! user_can( $user, 'manage_options' ) ) {
		return brasslet_error( 'brasslet_admin', 'That user is not an Administrator.', 403 );
	}
	wp_set_current_user( $user->ID );
	return true;
}

/**
 * The refusal where the site has no application passwords, or not for this user.
 *
 * @return WP_Error
 */
function brasslet_no_application_passwords() {
	return brasslet_error( 'brasslet_login', 'This WordPress cannot use application passwords.', 401 );
}

/**
 * Tells the site's plugins of a login that failed, as WordPress tells them of its own.
 *
 * @param WP_Error $refusal The refusal.
 * @return WP_Error The same.
 */
function brasslet_failed_login( $refusal ) {
	// phpcs:ignore WordPress.NamingConventions.PrefixAllGlobals -- an action of WordPress.
	do_action( 'application_password_failed_authentication', $refusal );
	return $refusal;
}

/**
 * Checks that a password is one of the user's application passwords, and that the site's plugins let it pass.
 *
 * @param WP_User $user The user.
 * @param string  $pass The password as given, with or without the spaces that WordPress shows it with.
 * @return true|WP_Error
 */
function brasslet_check_password( $user, $pass ) {
	$pass  = preg_replace( '/[^A-Za-z0-9]/', '', $pass );
	$known = brasslet_header_login();
	if ( $known['accepted'] && $known['user'] === $user->ID && hash_equals( $known['pass'], $pass ) ) {
		// WordPress has just checked, recorded and announced this very login, from the headers.
		return true;
	}
	$item = brasslet_matching_password( $user, $pass );
	if ( null === $item ) {
		return brasslet_error( 'incorrect_password', 'WordPress refused that application password.', 401 );
	}
	$objections = new WP_Error();
	// phpcs:disable WordPress.NamingConventions.PrefixAllGlobals -- actions of WordPress.
	do_action( 'wp_authenticate_application_password_errors', $objections, $user, $item, $pass );
	if ( $objections->has_errors() ) {
		$message = wp_strip_all_tags( $objections->get_error_message() );
		return brasslet_error( $objections->get_error_code(), $message, 401 );
	}
	WP_Application_Passwords::record_application_password_usage( $user->ID, $item['uuid'] ?? '' );
	do_action( 'application_password_did_authenticate', $user, $item );
	// phpcs:enable
	return true;
}

/**
 * Finds the application password of a user that a given password matches.
 *
 * @param WP_User $user The user.
 * @param string  $pass The password: letters and digits alone.
 * @return array|null What WordPress has stored about it, or null.
 */
function brasslet_matching_password( $user, $pass ) {
	// WordPress 6.8 hashes application passwords in a way that only this method can check.
	$has_own_check = method_exists( 'WP_Application_Passwords', 'check_password' );
	foreach ( WP_Application_Passwords::get_user_application_passwords( $user->ID ) as $item ) {
		$hash = brasslet_string( $item['password'] ?? '' );
		if ( '' === $hash ) {
			continue;
		}
		$matches = $has_own_check
			? WP_Application_Passwords::check_password( $pass, $hash )
			: wp_check_password( $pass, $hash );
		if ( $matches ) {
			return $item;
		}
	}
	return null;
}
