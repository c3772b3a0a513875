<?php

/**
 * Answers the capability "P2P Payment Destination" (BRFC 2a40af698840): the outputs that pay a name, and a reference.
 *
 * @param WP_REST_Request $request The request.
 * @return array|WP_Error
 */
function brasslet_offer_outputs( $request ) {
	$satoshis = brasslet_amount( brasslet_json( $request )['satoshis'] ?? null );
	if ( null === $satoshis ) {
		return brasslet_error(
			'brasslet_amount',
			'Send JSON with the member "satoshis", a whole number from 1 to 2100000000000000.',
			400
		);
	}
	$row = brasslet_row_for( $request );
	if ( is_wp_error( $row ) ) {
		return $row;
	}
	$script = brasslet_script( $row['address'] );
	if ( '' === $script || 1 !== preg_match( BRASSLET_ALIAS_RULE, $row['alias'] ) ) {
		return brasslet_error(
			'brasslet_damaged',
			'What the site has stored for this name is damaged. Ask its owner to publish the name again.',
			500
		);
	}
	return array(
		'outputs'   => array(
			array(
				'script'   => $script,
				'satoshis' => $satoshis,
			),
		),
		'reference' => brasslet_make_reference( $row, $satoshis ),
	);
}

/**
 * Takes a JSON value for an amount only when it is a whole number of satoshis that there can be.
 *
 * JSON knows one kind of number: 1000, 1000.0 and 1e3 are the same. A string is none.
 *
 * @param mixed $value The value.
 * @return int|null The amount, or null.
 */
function brasslet_amount( $value ) {
	$whole = is_int( $value ) || ( is_float( $value ) && floor( $value ) === $value );
	// Every whole number up to the limit is exact as a float too.
	return $whole && $value >= 1 && $value <= BRASSLET_MOST_SATOSHIS ? (int) $value : null;
}

/**
 * Answers the capability "Verify Public Key Owner" (BRFC a9f510c16bde): is this the key of that name?
 *
 * A name that is not there has no key: the documents want "match": false, and not an error.
 *
 * @param WP_REST_Request $request The request.
 * @return array|WP_Error
 */
function brasslet_verify_key( $request ) {
	$route  = $request->get_url_params();
	$alias  = strtolower( rawurldecode( brasslet_string( $route['alias'] ?? '' ) ) );
	$pubkey = strtolower( brasslet_string( $route['pubkey'] ?? '' ) );
	if ( 1 !== preg_match( '/^0[23][0-9a-f]{64}$/D', $pubkey ) || 1 !== preg_match( BRASSLET_ALIAS_RULE, $alias ) ) {
		return brasslet_error( 'brasslet_key', 'Ask for a name and a compressed public key of 66 hex digits.', 400 );
	}
	$row = brasslet_rows()[ $alias ] ?? array( 'pubkey' => '' );
	return array(
		'bsvalias' => '1.0',
		'handle'   => $alias . '@' . brasslet_host(),
		'pubkey'   => $pubkey,
		'match'    => $row['pubkey'] === $pubkey,
	);
}
