<?php

/**
 * Answers the paymail discovery document.
 *
 * Clients ask for it at the root of the host, outside the REST interface, and do not follow WordPress' redirect to a
 * trailing slash; hence so early.
 */
function brasslet_discovery() {
	// phpcs:ignore WordPress.Security.ValidatedSanitizedInput -- only compared with one fixed path.
	$uri  = brasslet_string( wp_unslash( $_SERVER['REQUEST_URI'] ?? '' ) );
	$path = wp_parse_url( $uri, PHP_URL_PATH );
	if ( ! is_string( $path ) || BRASSLET_DISCOVERY_PATH !== rawurldecode( $path ) ) {
		return;
	}
	brasslet_send_json(
		200,
		array(
			'bsvalias'     => '1.0',
			'capabilities' => brasslet_capabilities(),
		)
	);
}

/**
 * Names the URLs that a client fills an alias into, each under the capability's name and under its number.
 *
 * @return string[]
 */
function brasslet_capabilities() {
	$rest = brasslet_root() . '/wp-json/' . BRASSLET_NAMESPACE;
	$pki  = $rest . '/id/{alias}';
	$pay  = $rest . '/address/{alias}';
	return array(
		'pki'                => $pki,
		'0c4339ef99c2f5cc'   => $pki,
		'paymentDestination' => $pay,
		'759684b1a7631987'   => $pay,
	) + brasslet_payment_capabilities( $rest );
}

/**
 * Sends a JSON document that no cache keeps, and ends the request.
 *
 * @param int   $status HTTP status code.
 * @param array $body   The document.
 */
function brasslet_send_json( $status, $body ) {
	brasslet_tell_page_caches();
	status_header( $status );
	nocache_headers();
	header( 'Content-Type: application/json; charset=utf-8' );
	// As WordPress lets scripts of every origin read its REST routes: a wallet may be a page in a browser.
	header( 'Access-Control-Allow-Origin: *' );
	echo wp_json_encode( $body );
	exit;
}
