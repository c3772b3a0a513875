<?php

/**
 * Remembers the login of whom WordPress is about to accept, which is all that it tells about the password.
 *
 * @param WP_Error $error The objections of plugins.
 * @param WP_User  $user  The user.
 * @param array    $item  What WordPress has stored about the application password.
 * @param string   $pass  The password: letters and digits alone.
 */
function brasslet_remember_tried_login( $error, $user, $item, $pass ) {
	brasslet_header_login(
		array(
			'user'     => $user->ID,
			'item'     => $item,
			'pass'     => $pass,
			'accepted' => false,
		)
	);
}

/**
 * Remembers that WordPress has accepted the login.
 *
 * @param WP_User $user The user.
 * @param array   $item What WordPress has stored about the application password.
 */
function brasslet_remember_accepted_login( $user, $item ) {
	$login = brasslet_header_login();

	$login['accepted'] = $login['user'] === $user->ID && $login['item'] === $item;
	brasslet_header_login( $login );
}

/**
 * The last login by an application password of which WordPress has told in this request.
 *
 * @param array|null $login The one to remember from now on; null for none.
 * @return array The "user" as a number, the stored "item", the "pass" and whether it was "accepted".
 */
function brasslet_header_login( $login = null ) {
	static $last = array(
		'user'     => 0,
		'item'     => array(),
		'pass'     => '',
		'accepted' => false,
	);
	if ( null !== $login ) {
		$last = $login;
	}
	return $last;
}
