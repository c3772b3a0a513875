<?php

/*
 * How long a request that hands over a payment may be: room for the longest transaction as hex, the reference and the
 * words of the payer.
 */
define( 'BRASSLET_PAYMENT_BODY', 262144 );

/**
 * Refuses a body that is too long, before WordPress reads it and parses its JSON.
 *
 * WordPress has not looked at the body yet; PHP itself has parsed it only when it came as a form, within the limits of
 * php.ini. At most one byte more than allowed is read here, whatever Content-Length says: a body may come in chunks,
 * without it.
 *
 * @param WP $wp The request that WordPress has just understood.
 */
function brasslet_refuse_long_bodies( $wp ) {
	$route = brasslet_string( $wp->query_vars['rest_route'] ?? '' );
	if ( ! brasslet_owns_route( $route ) || ! brasslet_payments()['on'] ) {
		return;
	}
	$told = (int) ( $_SERVER['CONTENT_LENGTH'] ?? 0 );
	if ( $told <= BRASSLET_PAYMENT_BODY ) {
		// phpcs:ignore Generic.PHP.ForbiddenFunctions -- WordPress has no function that reads a part of the body.
		$body = (string) file_get_contents( 'php://input', false, null, 0, BRASSLET_PAYMENT_BODY + 1 );
		if ( strlen( $body ) <= BRASSLET_PAYMENT_BODY ) {
			return;
		}
	}
	brasslet_send_json(
		413,
		array(
			'code'    => 'brasslet_too_long',
			'message' => 'This request is longer than 262,144 bytes. Nothing was sent; pay with a smaller transaction.',
			'data'    => array( 'status' => 413 ),
		)
	);
}
