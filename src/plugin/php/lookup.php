<?php

/*
 * Date and time as ISO 8601 writes them, "2013-10-21T13:28:06.419Z", in the spellings that common libraries send:
 * seconds, a fraction of them, and the offset may be missing. How many days a month has is checked apart.
 */
define(
	'BRASSLET_TIME_RULE',
	'/^(\d{4})-(\d\d)-(\d\d)[Tt]([01]\d|2[0-3]):[0-5]\d(:([0-5]\d|60)([.,]\d+)?)?'
	. '([Zz]|[+-]([01]\d|2[0-3]):?[0-5]\d)?$/D'
);

/**
 * Answers the paymail capability "pki": the public key of a name.
 *
 * @param WP_REST_Request $request The request.
 * @return array|WP_Error
 */
function brasslet_pki( $request ) {
	$row = brasslet_row_for( $request );
	if ( is_wp_error( $row ) ) {
		return $row;
	}
	return array(
		'bsvalias' => '1.0',
		'handle'   => brasslet_handle( $row ),
		'pubkey'   => $row['pubkey'],
	);
}

/**
 * Answers the paymail capability "paymentDestination": the address that pays a name.
 *
 * @param WP_REST_Request $request The request.
 * @return array|WP_Error
 */
function brasslet_pay( $request ) {
	$row = brasslet_row_for( $request );
	if ( is_wp_error( $row ) ) {
		return $row;
	}
	$reply = array( 'address' => $row['address'] );
	if ( brasslet_asks_for_script( $request ) ) {
		$script = brasslet_script( $row['address'] );
		if ( '' !== $script ) {
			$reply['output'] = $script;
		}
	}
	return $reply;
}

/**
 * Finds the row of the alias in the route.
 *
 * @param WP_REST_Request $request The request.
 * @return array|WP_Error The row, or the refusal.
 */
function brasslet_row_for( $request ) {
	// Not get_param(): a payer's JSON body or query may hold an "alias" of its own, and must not choose who is paid.
	$route = $request->get_url_params();
	$alias = strtolower( rawurldecode( brasslet_string( $route['alias'] ?? '' ) ) );
	$rows  = brasslet_rows();
	return $rows[ $alias ] ?? brasslet_error( 'brasslet_miss', 'No paymail.', 404 );
}

/**
 * Says whether a request for a payment destination is one of the bsvalias documents.
 *
 * Those have the time as a text in the member "dt" of their JSON body, and want a script. The desktop program sends a
 * number and reads the address; so may older clients, which get the reply that they have always got. Whether a
 * sender's clock is right is no business of a host that only tells an address.
 *
 * @param WP_REST_Request $request The request.
 * @return bool
 */
function brasslet_asks_for_script( $request ) {
	$time = brasslet_string( brasslet_json( $request )['dt'] ?? '' );
	return 'POST' === $request->get_method()
		&& 1 === preg_match( BRASSLET_TIME_RULE, $time, $part )
		&& checkdate( (int) $part[2], (int) $part[3], (int) $part[1] );
}
