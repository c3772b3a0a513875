<?php

/**
 * Gives WordPress the login that a host has cut off.
 *
 * Some hosts drop the Authorization header before PHP sees it, so the desktop program sends the same text as
 * X-Brasslet-Auth too. WordPress reads what is set here when it checks application passwords. It has not added its
 * slashes to $_SERVER yet on this hook, and adds them to these values later as it does to its own.
 */
function brasslet_bridge_login() {
	if ( isset( $_SERVER['PHP_AUTH_USER'], $_SERVER['PHP_AUTH_PW'] ) ) {
		return;
	}
	// phpcs:disable WordPress.Security.ValidatedSanitizedInput -- a login must reach WordPress byte for byte.
	$header = brasslet_string( $_SERVER['HTTP_X_BRASSLET_AUTH'] ?? '' );
	if ( '' === $header ) {
		$header = brasslet_string( $_SERVER['REDIRECT_HTTP_X_BRASSLET_AUTH'] ?? '' );
	}
	// phpcs:enable
	if ( 0 !== strncasecmp( $header, 'basic ', 6 ) ) {
		return;
	}
	// phpcs:ignore WordPress.PHP.DiscouragedPHPFunctions -- the header is base64 (RFC 7617).
	$login = (string) base64_decode( trim( substr( $header, 6 ) ), true );
	// No colon, or nothing before it: no login.
	if ( ! strpos( $login, ':' ) ) {
		return;
	}
	list( $user, $pass ) = explode( ':', $login, 2 );

	$_SERVER['PHP_AUTH_USER']      = $user;
	$_SERVER['PHP_AUTH_PW']        = $pass;
	$_SERVER['HTTP_AUTHORIZATION'] = $header;
}
